#include "acquire/web/web_time.h"

#include <chrono>
#include <thread>

namespace brantlow {

WebTime SystemWebTime() {
    using Seconds = std::chrono::duration<double>;
    return {[] { return Seconds(std::chrono::steady_clock::now().time_since_epoch()).count(); },
            [](double seconds) { std::this_thread::sleep_for(Seconds(seconds)); }};
}

}  // namespace brantlow
