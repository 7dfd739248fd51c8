// Whether the pages of the browser window run in the web engine's sandbox.
#pragma once

namespace brantlow {

// To be called by main() before the application object is made and while the program has one thread. The
// engine ends the whole program where its sandbox cannot be had: for the system's administrator, and where
// the system makes no namespaces for its users. There, and only there, the sandbox is turned off; a user who
// has set QTWEBENGINE_DISABLE_SANDBOX has decided already.
void PrepareWebSandbox();

}  // namespace brantlow
