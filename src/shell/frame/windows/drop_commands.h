// What is dropped onto the main frame: a quote file is opened, a text file or a text adds its tickers to the
// open table.
#pragma once

#include <QObject>
#include <string>

#include "shell/frame/windows/frame_hands.h"

class QMimeData;

namespace brantlow {

class DropCommands final : public QObject {
  public:
    // `frame` outlives this; its window takes drops from here on.
    explicit DropCommands(const FrameHands& frame);

    bool eventFilter(QObject* object, QEvent* event) override;

    // Opens a quote file, which is copied into the data folder first where it lies elsewhere; the person is
    // asked before.
    void OpenQuoteFile(const Path& file);

  private:
    bool Takes(const QMimeData& data) const;
    void TakeFile(const Path& file);
    // `from` is what the person dropped, in words.
    void AddTickers(const std::string& text, const std::string& from);

    const FrameHands& frame_;
};

}  // namespace brantlow
