// A file that a page offers.
#pragma once

#include "shell/person.h"

class QWebEngineDownloadRequest;

namespace brantlow {

// Asks where the file is to go and fetches it there; Cancel fetches nothing. A download that fails is told to
// `person`, which outlives it.
void TakeDownload(QWebEngineDownloadRequest& download, Person& person);

}  // namespace brantlow
