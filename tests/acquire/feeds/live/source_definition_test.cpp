#include "acquire/feeds/live/source_definition.h"

#include "acquire/feeds/live/source_fixture.h"
#include "support/source_folder.h"

namespace brantlow {

namespace {

constexpr const char* kGood = R"({"name":"mine","title":"Mine","terms":"Mine alone.",
    "history":{"address":"https://example.org/{symbol}?from={from}","rows":"/rows",
    "fields":{"date":"/d","open":"/o","high":"/h","low":"/l","close":"/c"}}})";

std::string With(std::string_view from, std::string_view to) {
    std::string json = kGood;
    const std::size_t at = json.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return json.replace(at, from.size(), to);
}

}  // namespace

TEST(SourceDefinition, EveryShippedOneIsGood) {
    const SourceCatalogue catalogue = LoadSources("/nonexistent");
    EXPECT_TRUE(catalogue.refusals.empty()) << catalogue.refusals.front();
    std::vector<std::string> names;
    for (const SourceDefinition& source : catalogue.sources) names.push_back(source.name);
    EXPECT_EQ(names, (std::vector<std::string>{"alpaca", "alphavantage", "eodhd", "fmp", "massive", "nasdaq",
                                               "sec", "tiingo", "twelvedata", "yahoo"}));
}

TEST(SourceDefinition, TheBuiltInOnesAreTheShippedFiles) {
    for (const BuiltInSource& source : BuiltInSources()) {
        const Path file = SourceFolder() / "assets" / "Sources" / source.fileName;
        EXPECT_EQ(BytesOrEmpty(file), source.json) << file;
    }
    EXPECT_EQ(BuiltInSources().size(), FileNamesIn(SourceFolder() / "assets" / "Sources").size());
}

TEST(SourceDefinition, AGoodOneIsTaken) {
    const DefinitionRead read = ReadSourceDefinition(kGood);
    ASSERT_TRUE(read.definition) << read.refusal;
    EXPECT_EQ(read.definition->title, "Mine");
    EXPECT_EQ(read.definition->Form(Capability::History)->Field(RowField::Close), "/c");
    EXPECT_EQ(read.definition->Form(Capability::Quotes), nullptr);
}

TEST(SourceDefinition, WhatDoesNotFitIsRefusedWithPlaceAndReason) {
    struct Row {
        std::string json;
        const char* refusal;
    };
    const std::vector<Row> rows = {
        {"nothing", "/: is no JSON"},
        {"[]", "/: is no object"},
        {With(R"("name":"mine",)", ""), "/name: is missing"},
        {With(R"("mine")", R"("My Source")"), "/name: may hold small letters, digits and hyphens only"},
        {With(R"("mine")", R"("../x")"), "/name: may hold small letters, digits and hyphens only"},
        {With(R"("Mine")", "5"), "/title: is no text"},
        {With(R"("Mine")", R"("A\nB")"), "/title: holds a control character"},
        {With(R"("terms")", R"("tems")"), "/terms: is missing"},
        {With("https://example", "file:///etc"), "/history/address: is no http or https address"},
        {With("{from}", "{yesterday}"), "/history/address: {yesterday} stands for nothing"},
        {With("{from}", "{from"), "/history/address: {from} stands for nothing"},
        {With(R"("/c")", R"("c")"), "/history/fields/close: is no JSON pointer"},
        {With(R"(,"close":"/c")", ""), "/history/fields/close: is missing"},
        {With(R"("close")", R"("cloze")"), "/history/fields/cloze: is no entry that is known here"},
        {With(R"("rows":"/rows")", R"("rows":"/rows","date":"moon")"),
         "/history/date: 'moon' is none of those that there are"},
        {With(R"("rows":"/rows")", R"("rows":"/rows","tickers":0)"),
         "/history/tickers: is not between 1 and 1000"},
        {With(R"("rows":"/rows")", R"("rows":"/rows","factor":-1)"),
         "/history/factor: is not between 1e-06 and 1000000"},
        {With(R"("rows":"/rows")", R"("rows":"/rows","reader":"mine")"),
         "/history/reader: 'mine' is none of those that there are"},
        {With(R"("rows":"/rows")", R"("rows":"/rows","next":{})"), "/history/next/pointer: is missing"},
        {With(R"("name")", R"("zone":"Mars/Base","name")"),
         "/zone: 'Mars/Base' is no time zone that is known here"},
        {With(R"("name")", R"("errors":[{"outcome":"bad key"}],"name")"),
         "/errors/0: applies to every reply"},
        {With(R"("name")", R"("errors":[{"status":401,"outcome":"bad"}],"name")"),
         "/errors/0/outcome: 'bad' is no failure"},
        {With(R"("name")", R"("limits":{"minute":0},"name")"),
         "/limits/minute: is not between 1 and 1000000"},
        {With(R"("name")", R"("key":{"kind":"one"},"name")"), "/key/headers: nor a parameter takes the key"},
        {R"({"name":"mine","title":"Mine","terms":"x"})",
         "/history: is missing, and so is everything else that a source can give"},
    };
    for (const Row& row : rows) {
        const DefinitionRead read = ReadSourceDefinition(row.json);
        EXPECT_FALSE(read.definition) << row.json;
        EXPECT_EQ(read.refusal, row.refusal) << row.json;
    }
}

TEST_F(SourceTest, TheUsersDefinitionOverridesAndABadOneIsNamed) {
    Write("Data/Sources/mine.json", kGood);
    Write("Data/Sources/tiingo.json", With(R"("mine")", R"("tiingo")"));
    Write("Data/Sources/bad.json", "{}");
    Write("Data/Sources/notes.txt", "no definition");
    const SourceCatalogue catalogue = LoadSources(folder / "Data");
    EXPECT_EQ(catalogue.Find("mine")->title, "Mine");
    EXPECT_EQ(catalogue.Find("tiingo")->title, "Mine");
    ASSERT_EQ(catalogue.refusals.size(), 1u);
    EXPECT_EQ(catalogue.refusals.front(), "Data/Sources/bad.json: /name: is missing");
}

}  // namespace brantlow
