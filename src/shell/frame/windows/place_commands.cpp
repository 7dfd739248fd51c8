#include "shell/frame/windows/place_commands.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <vector>

#include "shell/frame/windows/window_person.h"

namespace brantlow {

namespace {

ScreenRect AreaOf(const QScreen& screen) {
    const QRect area = screen.availableGeometry();
    return {area.x(), area.y(), area.width(), area.height()};
}

// Of every screen, that of the desktop's first one in front.
std::vector<ScreenRect> FreeAreas() {
    std::vector<ScreenRect> areas;
    for (const QScreen* screen : QGuiApplication::screens()) areas.push_back(AreaOf(*screen));
    return areas;
}

// The title bar stands above what a window's own size measures.
int TitleBarHeight(const QWidget& window) {
    return window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
}

}  // namespace

CommandRows PlaceCommands::Rows() {
    CommandRows rows;
    for (const FrameChoice& choice : kFrameChoices)
        rows.push_back({choice.command, [this, &choice] { KeepChoice(choice); }});
    return rows;
}

void PlaceCommands::Open() {
    const QScreen* const onScreen = frame_.window.screen();
    display_.ScreenWidth = onScreen->size().width();
    display_.ScreenHeight = onScreen->size().height();
    const KeptFrame kept = LoadKeptFrame(userStore_);
    for (const FrameChoice& choice : kFrameChoices)
        frame_.check(choice.command, LoadFrameChoice(userStore_, choice));
    const bool maximised = kept.remembers ? PlaceAsKept(kept) : PlaceInOwnSize(onScreen->availableGeometry());
    if (maximised) {
        frame_.window.showMaximized();
    } else {
        frame_.window.show();
    }
}

bool PlaceCommands::PlaceAsKept(const KeptFrame& kept) {
    const FramePlace place = PlaceToOpen(kept.place, FreeAreas(), TitleBarHeight(frame_.window));
    frame_.window.setGeometry(place.rect.left, place.rect.top, place.rect.width, place.rect.height);
    return place.maximised;
}

// At the top left corner in its own size, or as much of it as the screen has; the whole of a smallest screen.
bool PlaceCommands::PlaceInOwnSize(const QRect& available) {
    frame_.window.move(available.topLeft());
    frame_.window.resize(
        std::min(PixelsOf(kFrameWidth), available.width()),
        std::min(PixelsOf(kFrameHeight), available.height() - TitleBarHeight(frame_.window)));
    return display_.FrameStartsMaximised();
}

// A maximised frame that remembers keeps the size that it goes back to.
void PlaceCommands::Keep() {
    const QMainWindow& window = frame_.window;
    if (window.isMinimized()) return;
    QRect place = window.geometry();
    const bool remembers = frame_.isChosen(kRemembersWindowSize.command);
    if (remembers && window.isMaximized() && window.normalGeometry().isValid())
        place = window.normalGeometry();
    // The choices stand beside the place: a store with a place alone is one from before they existed.
    for (const FrameChoice& choice : kFrameChoices) {
        if (SaveFrameChoice(userStore_, choice, frame_.isChosen(choice.command))) break;
    }
    TellUnkept(SaveFramePlace(userStore_,
                              {{place.x(), place.y(), place.width(), place.height()}, window.isMaximized()}));
}

void PlaceCommands::KeepChoice(const FrameChoice& choice) {
    TellUnkept(SaveFrameChoice(userStore_, choice, frame_.isChosen(choice.command)));
}

void PlaceCommands::TellUnkept(const std::error_code& error) {
    if (Failure failure = FailedTo(FailureKind::Write, userStore_, error))
        frame_.person.Say(Sentence(std::move(failure).About("the window's place is not kept")));
}

}  // namespace brantlow
