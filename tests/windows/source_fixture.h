// What the window tests of live sources share: a frame on Friday 2026-11-20 in the evening of New York, with
// the practice market in the place of every live source.
#pragma once

#include "acquire/feeds/live/source_choices.h"
#include "acquire/feeds/live/source_keys.h"
#include "acquire/feeds/live/source_state.h"
#include "acquire/web/curl_web.h"
#include "market/market_data.h"
#include "market/market_hosts.h"
#include "market/market_server.h"
#include "support/source_folder.h"
#include "window_fixture.h"

namespace brantlow {

inline constexpr Date kFriday{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{20}};

// The practice market on the loopback.
class SourceMarket {
  public:
    SourceMarket() {
        if (!server.Bind(0)) qFatal("no port for the market");
        server.Run();
    }

  private:
    MarketData data_ = MarketData::Read(SourceFolder() / "assets" / "practice");
    FixedClock clock_{kFriday};
    AlertList alerts_;

  public:
    MarketServer server{data_, clock_, alerts_};
};

class SourceProgram : public Program {
  public:
    SourceProgram() {
        // 23:30 UTC: the session in New York is over.
        clock.Set(kFriday, 23.5 * 3600);
        Write("Hosts.ini", MarketHostsText(market.server.Address()));
        // What is asked goes to the market on the wire.
        web.AnswerWith([this](const WebRequest& request) { return wire.Fetch(request); });
    }
    void Choose(const SourceChoices& choices) {
        std::string lines;
        for (const std::string& name : choices.names) lines += "\"" + name + "\"\r\n";
        Write("VTRSRCset.ini", lines);
        LoadSettingsFile(SettingsFile::Src, session.AppPath, session.settings);
    }
    void KeepKey(const std::string& source, const std::string& key) {
        if (WriteSourceKey(session.DataFolder(), source, key)) qFatal("no key");
    }
    // As if the terms of the source had been agreed to before.
    void Agree(const std::string& source) {
        SourceState(session.DataFolder(), SystemSourceTime()).TellsTermsFirst(source);
    }
    std::string History(const std::string& file) {
        return BytesOrEmpty(session.AppPath / "Quotes" / "EOD" / file);
    }

    SourceMarket market;
    CurlWeb wire{person};
};

template <class Widget>
Widget* Part(const QWidget* window, const char* name) {
    Widget* const found = window->findChild<Widget*>(QString::fromLatin1(name));
    if (!found) qFatal("no %s", name);
    return found;
}

}  // namespace brantlow
