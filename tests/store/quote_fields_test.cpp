#include "store/quote_fields.h"

#include <gtest/gtest.h>

#include "shell/settings/settings_defaults.h"
#include "store/columns.h"

namespace brantlow {
namespace {

TEST(QuoteFields, StandInTheOrderOfTheStandardSource) {
    ASSERT_EQ(kQuoteFields.size(), kDefaultEodSequence.size());
    for (std::size_t i = 0; i < kQuoteFields.size(); ++i) {
        EXPECT_EQ(kQuoteFields[i].name, kDefaultEodSequence[i]) << i;
    }
}

TEST(QuoteFields, EachFillsTheColumnOfItsName) {
    QuoteArrays rows;
    rows.MakeRoom(1);
    for (const QuoteField& field : kQuoteFields) (rows.*field.array)[1] = field.name;
    for (const QuoteField& field : kQuoteFields) {
        if (field.form == FieldForm::Amount) continue;
        std::string text;
        ASSERT_TRUE(CellText(rows, 1, field.name, text)) << field.name;
        EXPECT_EQ(text, field.name);
    }
    EXPECT_EQ(rows.MarketCapText[1], "Market Cap (M)");
}

TEST(QuoteFields, TheTextFields) {
    std::vector<std::string_view> texts;
    for (const QuoteField& field : kQuoteFields) {
        if (field.form == FieldForm::Text) texts.push_back(field.name);
    }
    EXPECT_EQ(texts, (std::vector<std::string_view>{"Ticker Symbol", "Trade Date", "Trade Time",
                                                    "Dividend Date", "Name", "Exchange", "X Dividend Date"}));
}

TEST(QuoteFields, DerivedColumnsAndOtherNamesHaveNone) {
    for (const char* name :
         {"Change (%)", "P/E est.", "SPS", "E/S", "Yield (%)", "Annual Sales (M)", "Annual Earnings (M)",
          "Annual Earnings est. (M)", "High Alarm", "Low Alarm", "Variable", "", "last price"}) {
        EXPECT_EQ(FindQuoteField(name), nullptr) << name;
    }
    EXPECT_EQ(FindQuoteField("P/S"), &kQuoteFields.back());
}

}  // namespace
}  // namespace brantlow
