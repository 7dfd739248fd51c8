// Runs one of the window tests of this program (see window_test.h).
#include <QApplication>
#include <QFileInfo>
#include <cstdio>
#include <map>

#include "window_test.h"

namespace brantlow {

namespace {

std::map<QString, RunWindowTest>& WindowTests() {
    static std::map<QString, RunWindowTest> tests;
    return tests;
}

}  // namespace

bool AddWindowTest(const char* file, RunWindowTest run) {
    return WindowTests().emplace(QFileInfo(QString::fromUtf8(file)).completeBaseName(), run).second;
}

}  // namespace brantlow

int main(int argc, char** argv) {
    const auto& tests = brantlow::WindowTests();
    const auto test = tests.find(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (test == tests.end()) {
        std::fputs("The first argument is one of these:\n", stderr);
        for (const auto& [name, run] : tests) std::fprintf(stderr, "  %s\n", qUtf8Printable(name));
        return 2;
    }
    // Qt's test library takes its arguments behind the program's name.
    argv[1] = argv[0];
    QApplication app(--argc, ++argv);
    return test->second(argc, argv);
}
