#include "chart/picture_module.h"

#include <QGuiApplication>
#include <clocale>
#include <memory>

#include "chart/windows/picture_painter.h"

namespace {

void SayNothing(QtMsgType, const QMessageLogContext&, const QString&) {}

// Fonts need an application object. This one opens no display, and what it would say of the missing one is
// not for the reader of the tool's errors.
class PaintingApplication {
  public:
    PaintingApplication() {
        if (QCoreApplication::instance() != nullptr) return;
        const QtMessageHandler before = qInstallMessageHandler(SayNothing);
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QGuiApplication>(count_, arguments_);
        // It takes over the user's locale; the program's numbers have a point everywhere.
        std::setlocale(LC_NUMERIC, "C");
        qInstallMessageHandler(before);
    }

  private:
    int count_ = 1;
    char name_[sizeof "brantlow-batch"] = "brantlow-batch";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QGuiApplication> application_;
};

}  // namespace

// Both sides are built together, so that the C++ types mean the same to them.
extern "C" Q_DECL_EXPORT std::string BrantlowPng(const brantlow::ChartPicture& picture);

std::string BrantlowPng(const brantlow::ChartPicture& picture) {
    const PaintingApplication application;
    return brantlow::PngOf(picture);
}

static_assert(std::is_same_v<decltype(&BrantlowPng), brantlow::PictureRoutine>);
