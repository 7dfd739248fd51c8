#include "market/market_reply.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"
#include "market/practice_dice.h"

namespace brantlow {

namespace {

constexpr unsigned kSlowBytesPerSecond = 200;
constexpr unsigned kRetrySeconds = 1;
constexpr std::size_t kJunkBytes = 4096;
constexpr std::size_t kFloodLines = 18000;

void AnswerStatus(MarketReply& reply, int status, std::string_view text) {
    reply = {.status = status, .contentType = std::string(kPlainText), .body = std::string(text)};
}

void SpoilByStatus404(MarketReply& reply, std::string_view) {
    AnswerStatus(reply, 404, "The practice market plays a missing page.\n");
}

void SpoilByStatus429(MarketReply& reply, std::string_view) {
    AnswerStatus(reply, 429, "The practice market plays a host that has had too many requests.\n");
    reply.retryAfterSeconds = kRetrySeconds;
}

void SpoilByStatus500(MarketReply& reply, std::string_view) {
    AnswerStatus(reply, 500, "The practice market plays a broken host.\n");
}

void SpoilByStatus503(MarketReply& reply, std::string_view) {
    AnswerStatus(reply, 503, "The practice market plays a host that rests.\n");
    reply.retryAfterSeconds = kRetrySeconds;
}

void Empty(MarketReply& reply, std::string_view) {
    reply.body.clear();
}

void Cut(MarketReply& reply, std::string_view) {
    reply.sentBytes = reply.body.size() / 2;
}

void Slow(MarketReply& reply, std::string_view) {
    reply.bytesPerSecond = kSlowBytesPerSecond;
}

void Junk(MarketReply& reply, std::string_view target) {
    reply.body.clear();
    for (std::size_t i = 0; reply.body.size() < kJunkBytes; ++i) {
        const double share = ShareOf(target, std::to_string(i));
        reply.body += static_cast<char>(static_cast<unsigned char>(share * 256));
    }
}

void Html(MarketReply& reply, std::string_view) {
    reply.contentType = kHtml;
    reply.body =
        "<!DOCTYPE html>\n<html><head><title>Out of service</title></head>\n"
        "<body><h1>Out of service</h1><p>The practice market plays a host whose service has gone.</p>"
        "</body></html>\n";
}

std::vector<std::string_view> LinesOf(const std::string& body) {
    std::vector<std::string_view> lines;
    LineReader reader(body);
    for (std::string_view line; reader.Next(line);) lines.push_back(line);
    return lines;
}

void Reversed(MarketReply& reply, std::string_view) {
    std::vector<std::string_view> lines = LinesOf(reply.body);
    std::reverse(lines.begin(), lines.end());
    reply.body = fmt::format("{}\n", fmt::join(lines, "\n"));
}

void Flood(MarketReply& reply, std::string_view) {
    const std::vector<std::string_view> lines = LinesOf(reply.body);
    if (lines.empty()) return;
    std::string body;
    for (std::size_t i = 0; i < kFloodLines; ++i) body.append(lines[i % lines.size()]).append(1, '\n');
    reply.body = std::move(body);
}

// A live source plays it in its own words; the other hosts know nothing of it.
void LeaveToSource(MarketReply&, std::string_view) {}

constexpr std::array<FaultRow, 15> kFaults = {
    {{"status404", "answers status 404", SpoilByStatus404},
     {"status429", "answers status 429 and asks to wait a second", SpoilByStatus429},
     {"status500", "answers status 500", SpoilByStatus500},
     {"status503", "answers status 503 and asks to wait a second", SpoilByStatus503},
     {"empty", "sends no bytes", Empty},
     {"cut", "announces the whole reply, sends its first half and closes the connection", Cut},
     {"slow", "sends 200 bytes a second", Slow},
     {"junk", "sends 4096 bytes that are no text", Junk},
     {"html", "sends a page in place of the reply", Html},
     {"reversed", "sends the lines of the reply last first", Reversed},
     {"flood", "repeats the lines of the reply up to 18,000", Flood},
     {"badkey", "a live source refuses the key", LeaveToSource},
     {"limit", "a live source has had too many requests", LeaveToSource},
     {"plan", "a live source's plan does not hold what is asked", LeaveToSource},
     {"notyet", "a live source has not published today yet", LeaveToSource}}};

}  // namespace

const FaultRow* FindFault(std::string_view name) {
    const auto found =
        std::find_if(kFaults.begin(), kFaults.end(), [&](const FaultRow& row) { return row.name == name; });
    return found == kFaults.end() ? nullptr : &*found;
}

std::string FaultHelp() {
    std::string help;
    for (const FaultRow& row : kFaults) help += fmt::format("  {:<12}{}\n", row.name, row.what);
    return help;
}

}  // namespace brantlow
