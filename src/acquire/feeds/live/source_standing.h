// How it stands with a live source in an application folder: what it gives and is chosen for, whether its key
// is there, and until when it wants to be left alone. The list of sources of every face comes from here.
#pragma once

#include <string>
#include <vector>

#include "acquire/feeds/live/source_catalogue.h"
#include "acquire/feeds/live/source_client.h"

namespace brantlow {

enum class KeyStanding { NotNeeded, InFile, InEnvironment, Missing };

struct SourceStanding {
    std::vector<Capability> gives;
    std::vector<Capability> chosenFor;
    bool isFallback = false;
    KeyStanding key = KeyStanding::NotNeeded;
    // "5 a minute", "0.5 seconds between two"; those of Hosts.ini in place of the source's own.
    std::vector<std::string> limits;
    SourceState::Rest rest;
};

SourceStanding StandingOf(SourceWorld& world, const SourceDefinition& source);

// What the source has to be given before it can be asked, in words; empty for nothing.
std::string NeedWords(const SourceDefinition& source);

// "quotes, history".
std::string CapabilityWords(const std::vector<Capability>& capabilities);
std::string_view NameOf(Capability capability);

// How long so many tickers take at the limits of a source, in seconds: their history of some years, or one
// update.
double SecondsOfPopulate(SourceWorld& world, const SourceDefinition& source, std::size_t tickers,
                         double years);
double SecondsOfUpdate(SourceWorld& world, const SourceDefinition& source, std::size_t tickers);

// Who is asked for it: "Massive", "Massive, for tickers unknown there Yahoo"; empty for the standard source.
std::string AskedWords(const Session& session, Capability capability);

// "about 2 minutes", "about 3 hours"; "a moment" for less than a minute.
std::string DurationWords(double seconds);

}  // namespace brantlow
