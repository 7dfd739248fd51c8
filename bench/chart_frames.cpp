// The chart's window in use, offscreen: what one step of the pointer, of a drag and of the wheel takes until
// it is painted, with seven series. Prints the processor's milliseconds of the median and of the slowest
// hundredth.
#include <time.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QThread>
#include <QWheelEvent>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "chart/windows/chart_panel.h"
#include "chart/windows/frmGraph.h"
#include "chart_sample.h"

namespace {

using namespace brantlow;

constexpr int kSteps = 100;
// Of this thread, which paints, whatever else the machine does meanwhile.
double ProcessorMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return 1e3 * static_cast<double>(now.tv_sec) + 1e-6 * static_cast<double>(now.tv_nsec);
}

void Measure(const char* what, const std::function<void(int)>& step) {
    std::vector<double> milliseconds;
    for (int i = 0; i < kSteps; ++i) {
        const double start = ProcessorMilliseconds();
        step(i);
        QCoreApplication::processEvents();
        milliseconds.push_back(ProcessorMilliseconds() - start);
    }
    std::sort(milliseconds.begin(), milliseconds.end());
    std::printf("%-34s %6.2f ms  slowest hundredth %6.2f ms\n", what, milliseconds[kSteps / 2],
                milliseconds[kSteps * 99 / 100]);
}

void Mouse(ChartPanel& panel, QEvent::Type type, QPointF place, Qt::MouseButton button,
           Qt::MouseButtons held) {
    QMouseEvent event(type, place, panel.mapToGlobal(place), button, held, {});
    QCoreApplication::sendEvent(&panel, &event);
}

void Wheel(ChartPanel& panel, QPointF place, int notches) {
    QWheelEvent wheel(place, panel.mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&panel, &wheel);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const Path folder = NewChartFolder();
    FixedClock clock{kToday};
    Silence person;
    Session session{folder, clock, person};
    session.settings.QuoteFolder = (folder / "Quotes/EOD").string() + "/";
    auto analysis = std::make_unique<Analysis>();
    ChartSession chart;
    ChartContext context{session, *analysis, chart};
    StartChart(context, {"AB"}, "");
    ChartOptions options;
    options.grid = options.roundPrices = true;
    {
        frmGraph form(context, options);
        form.resize(1400, 900);
        form.show();
        // A person takes as long to reach for the mouse.
        QElapsedTimer opened;
        opened.start();
        while (opened.elapsed() < 500) {
            QCoreApplication::processEvents();
            QThread::msleep(5);
        }
        auto* const panel = form.findChild<ChartPanel*>(QStringLiteral("Picture1"));
        const double width = panel->width();
        Measure("hover", [&](int i) {
            Mouse(*panel, QEvent::MouseMove, {20 + std::fmod(i * 7.0, width - 40), 100}, Qt::NoButton,
                  Qt::NoButton);
        });
        Measure("zoom in the chart's own window", [&](int i) {
            Wheel(*panel, {width / 2, 100}, i % 8 < 4 ? 1 : -1);
        });
        const auto drag = [&](const char* what) {
            Mouse(*panel, QEvent::MouseButtonPress, {width / 2, 100}, Qt::LeftButton, Qt::LeftButton);
            Measure(what, [&](int i) {
                const int swing = i % 60 < 30 ? i % 30 : 30 - i % 30;
                Mouse(*panel, QEvent::MouseMove, {width / 2 + 12.0 * swing, 100}, Qt::NoButton,
                      Qt::LeftButton);
            });
            Mouse(*panel, QEvent::MouseButtonRelease, {width / 2, 100}, Qt::LeftButton, Qt::NoButton);
        };
        drag("pan over 279 bars");
        Wheel(*panel, {width / 2, 100}, -20);
        // With all bars in sight there is nowhere to go.
        Wheel(*panel, {width / 2, 100}, 1);
        drag("pan over four fifths of all bars");
        Wheel(*panel, {width / 2, 100}, -20);
        Measure("zoom beyond the own window", [&](int i) {
            Wheel(*panel, {width / 2, 100}, i % 8 < 4 ? 1 : -1);
        });
    }
    std::filesystem::remove_all(folder);
    return 0;
}
