#include "acquire/feeds/archives/bundle_reading.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "support/zip_file.h"

namespace brantlow {

namespace {

class HistoryBundle : public ::testing::Test {
  protected:
    Path Zip(const std::vector<ZipEntry>& entries) const {
        const Path file = folder / "archive.zip";
        WriteZip(file.string(), entries);
        return file;
    }
    void Write(const Path& name, std::string_view bytes) const {
        std::filesystem::create_directories((folder / name).parent_path());
        ASSERT_FALSE(WriteWholeFile(folder / name, bytes, Flush::Later));
    }

    // "NAME=BYTES", or "NAME!WHY", of all that is read.
    std::vector<std::string> ReadAll(const Path& from, const BundleLimits& limits = {},
                                     std::size_t helpers = 0) {
        std::vector<std::string> read;
        fault = ReadBundle(from, ListBundle(from), Reading(read, helpers), limits);
        return read;
    }

    // Takes all files, or `most` of them.
    BundleReading Reading(std::vector<std::string>& read, std::size_t helpers, std::size_t most = 1000) {
        return {[](const BundleEntry&) { return true; },
                [this](std::size_t slot, const BundleEntry& entry, const BundleText& text) {
                    worked[slot] = entry.name + (text.refusal.empty() ? "=" : "!") +
                                   (text.refusal.empty() ? std::string(text.bytes) : text.refusal);
                },
                [this, &read, most](std::size_t slot, const BundleEntry&) {
                    read.push_back(worked[slot]);
                    return read.size() < most;
                },
                helpers};
    }

    TempFolder folder;
    Failure fault;
    std::array<std::string, kReadAhead> worked;
};

std::vector<std::string> NamesOf(const BundleList& list) {
    std::vector<std::string> names;
    for (const BundleEntry& entry : list.entries) names.push_back(entry.name);
    return names;
}

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(HistoryBundle, AnArchiveGivesItsFilesInTheirOrder) {
    const Path zip = Zip({{"data/us/b.us.txt", "two"}, {"data/us/a.us.txt", "one"}, {"empty.txt", ""}});
    const BundleList list = ListBundle(zip);
    EXPECT_FALSE(list.fault);
    EXPECT_EQ(NamesOf(list), (Texts{"data/us/b.us.txt", "data/us/a.us.txt", "empty.txt"}));
    EXPECT_EQ(list.entries.front().bytes, 3u);
    EXPECT_EQ(ReadAll(zip), (Texts{"data/us/b.us.txt=two", "data/us/a.us.txt=one", "empty.txt="}));
    EXPECT_FALSE(fault);
}

TEST_F(HistoryBundle, AFolderGivesItsFilesByNameAndFollowsNoLink) {
    Write("outside.txt", "secret");
    Write("in/us/b.us.txt", "two");
    Write("in/a.us.txt", "one");
    std::filesystem::create_symlink(folder / "outside.txt", folder / "in/link.txt");
    std::filesystem::create_directory_symlink(folder.Get(), folder / "in/us/up");
    const BundleList list = ListBundle(folder / "in");
    EXPECT_EQ(NamesOf(list), (Texts{"a.us.txt", "us/b.us.txt"}));
    EXPECT_EQ(list.links, 2u);
    EXPECT_EQ(ReadAll(folder / "in"), (Texts{"a.us.txt=one", "us/b.us.txt=two"}));
}

TEST_F(HistoryBundle, ATextFileIsABundleOfItself) {
    Write("aapl.us.txt", "one");
    EXPECT_EQ(ReadAll(folder / "aapl.us.txt"), (Texts{"aapl.us.txt=one"}));
}

TEST_F(HistoryBundle, OnlyWhatIsWantedIsRead) {
    const Path zip = Zip({{"a.txt", "one"}, {"b.txt", "two"}, {"c.txt", "three"}});
    Texts read;
    BundleReading reading = Reading(read, 0, 1);
    reading.wants = [](const BundleEntry& entry) { return entry.name != "a.txt"; };
    EXPECT_FALSE(ReadBundle(zip, ListBundle(zip), reading));
    EXPECT_EQ(read, (Texts{"b.txt=two"}));
}

TEST_F(HistoryBundle, AnArchiveWhoseNamesLeadOutOrThatHoldsALinkIsRefusedAsAWhole) {
    struct Hostile {
        ZipEntry entry;
        std::string words;
    };
    const std::vector<Hostile> rows = {
        {{"../evil.txt", "x"}, "its entry '../evil.txt' leads out of it"},
        {{"data/../../evil.txt", "x"}, "its entry 'data/../../evil.txt' leads out of it"},
        {{"..\\evil.txt", "x"}, "its entry '../evil.txt' leads out of it"},
        {{"C:\\evil.txt", "x"}, "its entry 'C:/evil.txt' leads out of it"},
        {{"link.txt", "", "/etc/passwd"}, "its entry 'link.txt' is no file"},
    };
    for (const Hostile& row : rows) {
        const Path zip = Zip({{"a.us.txt", "one"}, row.entry});
        const std::string sentence = zip.string() + ": " + row.words;
        EXPECT_EQ(Sentence(ListBundle(zip).fault), sentence);
        ReadAll(zip);
        EXPECT_EQ(Sentence(fault), sentence);
    }
}

TEST_F(HistoryBundle, AnAbsoluteNameIsRefused) {
    const Path zip = Zip({{"xetc/passwd", "one"}});
    std::string bytes = BytesOrEmpty(zip);
    for (std::size_t at = bytes.find("xetc"); at != std::string::npos; at = bytes.find("xetc"))
        bytes[at] = '/';
    Write("archive.zip", bytes);
    EXPECT_EQ(Sentence(ListBundle(zip).fault), zip.string() + ": its entry '/etc/passwd' leads out of it");
}

TEST_F(HistoryBundle, AnArchiveThatIsCutAnywhereIsRefused) {
    const Path zip = Zip({{"a.us.txt", std::string(300, 'a') + "one"}, {"b.us.txt", "two"}});
    const std::string whole = BytesOrEmpty(zip);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        Write("archive.zip", std::string_view(whole).substr(0, length));
        ASSERT_TRUE(ListBundle(zip).fault) << length;
        EXPECT_TRUE(ReadAll(zip).empty()) << length;
        EXPECT_TRUE(Sentence(fault).starts_with(zip.string() + ": is no whole zip archive ("))
            << Sentence(fault);
    }
}

TEST_F(HistoryBundle, WhatIsNoArchiveIsToldWithItsName) {
    Write("archive.zip", "<html>Exceeded the daily hits limit</html>");
    EXPECT_TRUE(Sentence(ListBundle(folder / "archive.zip").fault)
                    .starts_with((folder / "archive.zip").string() + ": is no whole zip archive ("));
    EXPECT_EQ(Sentence(ListBundle(folder / "gone.zip").fault),
              (folder / "gone.zip").string() + ": cannot be read (No such file or directory)");
}

TEST_F(HistoryBundle, ADamagedEntryCostsItselfAlone) {
    std::string rows;
    for (int i = 0; i < 2000; ++i) rows += std::to_string(i * 7919) + ",";
    const Path zip = Zip({{"a.txt", rows + "a"}, {"b.txt", rows + "b"}, {"c.txt", rows + "c"}});
    const std::string whole = BytesOrEmpty(zip);
    const std::size_t second = whole.find("b.txt");
    std::size_t refused = 0;
    for (std::size_t at = second + 40; at < second + 400; at += 20) {
        std::string bytes = whole;
        bytes[at] = static_cast<char>(~bytes[at]);
        Write("archive.zip", bytes);
        const Texts read = ReadAll(zip);
        EXPECT_FALSE(fault) << Sentence(fault);
        ASSERT_EQ(read.size(), 3u) << at;
        EXPECT_EQ(read.front(), "a.txt=" + rows + "a");
        EXPECT_EQ(read.back(), "c.txt=" + rows + "c");
        if (read[1].starts_with("b.txt!its packed bytes are damaged (")) ++refused;
    }
    EXPECT_EQ(refused, 18u);
}

TEST_F(HistoryBundle, WhatUnpacksToTooMuchIsRefused) {
    const Path zip = Zip({{"bomb.txt", std::string(3'000'000, '0')}, {"a.txt", "one"}});
    EXPECT_LT(std::filesystem::file_size(zip), 20'000u);
    EXPECT_EQ(ReadAll(zip, {.bytesOfFile = 1024 * 1024}),
              (Texts{"bomb.txt!it is larger than 1 MB", "a.txt=one"}));
    EXPECT_FALSE(fault);
    ReadAll(zip, {.bytes = 1024 * 1024});
    EXPECT_EQ(Sentence(fault), zip.string() + ": unpacks to more than 0 GB");
    EXPECT_EQ(Sentence(ListBundle(zip, {.files = 1}).fault), zip.string() + ": holds more than 1 files");
}

TEST_F(HistoryBundle, TheSameLimitsHoldForAFolder) {
    Write("in/a.txt", std::string(3'000'000, '0'));
    Write("in/b.txt", "one");
    EXPECT_EQ(ReadAll(folder / "in", {.bytesOfFile = 1024 * 1024}),
              (Texts{"a.txt!it is larger than 1 MB", "b.txt=one"}));
    ReadAll(folder / "in", {.bytes = 1000});
    EXPECT_EQ(Sentence(fault), (folder / "in").string() + ": unpacks to more than 0 GB");
    EXPECT_EQ(Sentence(ListBundle(folder / "in", {.files = 1}).fault),
              (folder / "in").string() + ": holds more than 1 files");
}

// Large files beside small ones, so that threads overtake one another.
TEST_F(HistoryBundle, ManyThreadsTakeTheSameInTheSameOrder) {
    std::vector<ZipEntry> entries;
    for (int i = 0; i < 200; ++i) {
        const std::string name = "us/" + std::to_string(1000 + i) + ".txt";
        entries.push_back({name, std::string(i % 7 == 0 ? 300'000 : 10, static_cast<char>('a' + i % 26))});
        Write("in/" + name, entries.back().bytes);
    }
    for (const Path& from : {Zip(entries), folder / "in"}) {
        const Texts alone = ReadAll(from);
        ASSERT_EQ(alone.size(), 200u);
        for (const std::size_t helpers : {1U, 2U, 7U, 100U}) {
            EXPECT_EQ(ReadAll(from, {}, helpers), alone) << helpers;
            EXPECT_FALSE(fault);
            Texts few;
            EXPECT_FALSE(ReadBundle(from, ListBundle(from), Reading(few, helpers, 50)));
            EXPECT_EQ(few, Texts(alone.begin(), alone.begin() + 50));
            EXPECT_EQ(ReadAll(from, {.bytes = 1'000'000}, helpers).size(), 21u);
            EXPECT_EQ(Sentence(fault), from.string() + ": unpacks to more than 0 GB");
        }
    }
}

// The bytes of each are some of another deflate stream.
TEST_F(HistoryBundle, ManyThreadsMeetTheSameDamage) {
    std::vector<ZipEntry> entries;
    std::string rows;
    for (int i = 0; i < 500; ++i) rows += std::to_string(i * 7919) + ",";
    for (int i = 0; i < 150; ++i) entries.push_back({std::to_string(1000 + i) + ".txt", rows});
    std::string bytes = BytesOrEmpty(Zip(entries));
    const auto spoil = [&](int entry) {
        bytes.replace(bytes.find(std::to_string(1000 + entry) + ".txt") + 60, 40, 40, '\xFF');
    };
    for (int i = 0; i < 90; i += 3) spoil(i);
    Write("archive.zip", bytes);
    const Path zip = folder / "archive.zip";
    const Texts alone = ReadAll(zip);
    EXPECT_EQ(std::count_if(alone.begin(), alone.end(), [](const auto& each) { return each[8] == '!'; }), 30);
    EXPECT_EQ(ReadAll(zip, {}, 3), alone);

    for (int i = 0; i < 120; ++i) spoil(i);
    Write("archive.zip", bytes);
    for (const std::size_t helpers : {std::size_t{0}, std::size_t{3}}) {
        EXPECT_EQ(ReadAll(zip, {}, helpers).size(), 101u);
        EXPECT_EQ(Sentence(fault), zip.string() + ": too many of its entries are damaged");
    }
}

TEST_F(HistoryBundle, AnArchiveThatChangesUnderTheReadingIsRefused) {
    const Path zip = Zip({{"a.txt", "one"}, {"b.txt", "two"}});
    const BundleList list = ListBundle(zip);
    for (const std::vector<ZipEntry>& other : {std::vector<ZipEntry>{{"a.txt", "one"}},
                                               std::vector<ZipEntry>{{"a.txt", "one"}, {"c.txt", "two"}}}) {
        Zip(other);
        Texts read;
        EXPECT_EQ(Sentence(ReadBundle(zip, list, Reading(read, 0))),
                  zip.string() + ": was changed while it was read");
        EXPECT_EQ(read, (Texts{"a.txt=one"}));
    }
}

}  // namespace brantlow
