// The window tests share one program: linking each alone costs more than compiling it. A file ends with
// WINDOW_TEST(Class) and its moc; the program is told the file's stem, and then what Qt's test library takes:
//
//   window_tests frmGraph_test -v2 aRoutineOfIt
//
// Every test is started in a process of its own, since each needs an application that nothing happened in
// before.
#pragma once

#include <QTest>

namespace brantlow {

using RunWindowTest = int (*)(int argc, char** argv);

// Enters a test under the stem of its file; the result means nothing.
bool AddWindowTest(const char* file, RunWindowTest run);

}  // namespace brantlow

#define WINDOW_TEST(Class)                                            \
    [[maybe_unused]] static const bool k##Class##IsAdded =            \
        brantlow::AddWindowTest(__FILE__, [](int argc, char** argv) { \
            Class test;                                               \
            return QTest::qExec(&test, argc, argv);                   \
        });
