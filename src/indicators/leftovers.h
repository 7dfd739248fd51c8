// What a run leaves in the working series behind its last ticker.
#pragma once

namespace brantlow {

// Whether anybody looks at the elements above BarCount, and at LastRowRead, once the run is done.
enum class Leftovers {
    Kept,
    // Nobody does: a daily run over a working series into which nothing was ever written then leaves older
    // files unread where the window is full without them. Tickers with short rows find all the same what
    // earlier ones would have left.
    Unused,
};

}  // namespace brantlow
