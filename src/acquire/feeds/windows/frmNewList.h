// The window "New List": a new end-of-day file out of tickers that are typed or pasted, or out of the symbols
// of a market, and the live source that is to fill it. A new user begins here, the File menu opens it too.
// What follows, opening the table and filling it, is the main frame's.
#pragma once

#include <QDialog>
#include <array>
#include <string>

#include "acquire/feeds/live/source_desk.h"
#include "acquire/feeds/live/symbol_table.h"
#include "acquire/feeds/new_table.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace brantlow {

class SourceCard;

enum class NewListOf { Tickers, Market };

class frmNewList final : public QDialog {
    Q_OBJECT
  public:
    // Both outlive the window, which begins with the tickers or with a market.
    frmNewList(Session& session, Web& web, NewListOf begin, QWidget* parent);

    // While symbols are asked for, that ends first.
    void reject() override;

  Q_SIGNALS:
    // The file was written; `fills` that its histories and quotes are to be fetched now. The window has
    // hidden itself.
    void TableMade(const std::string& name, bool fills);

  private:
    QWidget* BuildTickers();
    QWidget* BuildMarket();
    QWidget* BuildSource();
    QWidget* BuildButtons();
    std::string ProposedSource() const;
    void ShowKind();
    void ShowRemark();
    void FitHeight();
    void Create();
    bool Prepare(const std::string& name);
    NewTable Make(const std::string& name);
    bool KeepChoices();
    bool KeepYears();
    bool WantsAll(const std::string& name, std::size_t tickers);
    double SecondsOfFilling(const SourceDefinition& source, std::size_t tickers);
    SymbolChoice Choice() const;
    TypedTickers Typed() const;
    void Tell(const std::string& sentence);
    void ShowAsking(bool isAsking);

    Session& session_;
    SourceDesk desk_;
    QRadioButton* ofTickers_;
    QRadioButton* ofMarket_;
    QWidget* tickersPart_ = nullptr;
    QWidget* marketPart_ = nullptr;
    QPlainTextEdit* tickers_;
    SourceCard* lists_ = nullptr;
    std::array<QCheckBox*, kExchangeNames.size()> exchanges_{};
    QComboBox* kind_;
    QLineEdit* text_;
    QLineEdit* name_;
    QGroupBox* fills_;
    SourceCard* prices_ = nullptr;
    QComboBox* years_;
    QLabel* outcome_;
    QProgressBar* progress_;
    QPushButton* create_ = nullptr;
    bool isAsking_ = false;
    bool closesAfterwards_ = false;
};

}  // namespace brantlow
