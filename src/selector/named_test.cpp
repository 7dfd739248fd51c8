#include "selector/named_test.h"

#include "selector/test_running.h"

namespace brantlow {

TestState RunNamedTest(const NamedTest& test, const Analysis& analysis, std::size_t bar) {
    return RunNamedTestOver(test, AnalysisBars(analysis), bar);
}

}  // namespace brantlow
