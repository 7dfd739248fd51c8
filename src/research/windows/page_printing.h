// Printing the browser window's page.
#pragma once

class QPrinter;
class QWebEngineView;

namespace brantlow {

// Asks for the printer and prints.
void PrintPage(QWebEngineView& view);

// Shows the pages as they would be printed; they can be printed from there.
void PreviewPage(QWebEngineView& view);

// Prints and waits until the page is with the printer; window events run meanwhile. False when it failed.
bool PrintPageTo(QWebEngineView& view, QPrinter& printer);

}  // namespace brantlow
