#include "base/windows/mnemonics.h"

namespace brantlow {

qsizetype Mnemonics::FreeLetter(const QString& words, bool wordStart) const {
    for (qsizetype i = 0; i < words.size(); ++i) {
        const bool starts = i == 0 || !words.at(i - 1).isLetterOrNumber();
        if (words.at(i).isLetter() && (starts || !wordStart) && !taken_.contains(words.at(i).toUpper())) {
            return i;
        }
    }
    return -1;
}

QString Mnemonics::Mark(const QString& words) {
    qsizetype letter = FreeLetter(words, true);
    if (letter < 0) letter = FreeLetter(words, false);
    if (letter >= 0) taken_ += words.at(letter).toUpper();
    QString marked;
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (i == letter || words.at(i) == QLatin1Char('&')) marked += QLatin1Char('&');
        marked += words.at(i);
    }
    return marked;
}

}  // namespace brantlow
