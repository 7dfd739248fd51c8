// Gives the words of a dialog's page their underlined letters, each letter once.
#pragma once

#include <QString>

namespace brantlow {

class Mnemonics {
  public:
    // `taken` are the letters, in capitals, that others than the page's controls answer to.
    explicit Mnemonics(QString taken) : taken_(std::move(taken)) {}

    // `words` with an ampersand before a letter that is free so far, a word's first letter where there is
    // one; without one when all their letters are taken. An ampersand of the words themselves stays one.
    QString Mark(const QString& words);

  private:
    qsizetype FreeLetter(const QString& words, bool wordStart) const;

    QString taken_;
};

}  // namespace brantlow
