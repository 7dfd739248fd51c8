#include "shell/settings/condition_set.h"

#include <algorithm>

#include "base/values.h"

namespace brantlow {

namespace {

// The most names a block can hold, the list's entries 0 to 18,000.
constexpr std::size_t kMostNames = kMostRows + 1;

// Takes the lines of a stored set one by one and puts each in its place.
class SetReader {
  public:
    explicit SetReader(ConditionSet& set) : set_(set) {}

    void Take(const ConditionLine& line) {
        block_ = line.block;
        Condition* condition = Current();
        switch (line.token) {
            case ConditionToken::Action:
                phase_ = Phase::Names;
                if (condition != nullptr) condition->action = line.text;
                return;
            case ConditionToken::Values:
                phase_ = Phase::Slots;
                slot_ = 0;
                return;
            case ConditionToken::Text:
                if (phase_ == Phase::Names && condition != nullptr) condition->names.push_back(line.text);
                break;
            case ConditionToken::Begin:
                break;
        }
        // A line "Condition" among the slots takes up a slot too: in a whole block the one behind the last.
        if (phase_ == Phase::Slots) TakeSlot(line.text);
    }

  private:
    enum class Phase { Before, Names, Slots };

    Condition* Current() { return block_ >= 1 && block_ <= kConditionCount ? &set_[block_ - 1] : nullptr; }

    void TakeSlot(const std::string& line) {
        ++slot_;
        Condition* condition = Current();
        if (condition != nullptr && slot_ <= kSlotCount && !line.empty()) {
            condition->slots[slot_ - 1] = line;
        }
    }

    ConditionSet& set_;
    Phase phase_ = Phase::Before;
    std::size_t block_ = 0;
    std::size_t slot_ = 0;
};

void AppendWritten(std::string& text, std::string_view value) {
    text += Value::OfText(value).Written();
    text += kLineEnd;
}

void AppendCondition(std::string& text, const Condition& condition) {
    AppendWritten(text, kConditionLine);
    AppendWritten(text, condition.action);
    const std::size_t most = std::min(condition.names.size(), kMostNames);
    for (std::size_t i = 0; i < most && !condition.names[i].empty(); ++i) {
        AppendWritten(text, condition.names[i]);
    }
    AppendWritten(text, kValueLine);
    for (const std::string& slot : condition.slots) AppendWritten(text, slot);
}

}  // namespace

ConditionSet ParseConditionSet(const SettingsTable& selectorSettings) {
    ConditionSet set;
    SetReader reader(set);
    WalkConditionLines(selectorSettings, selectorSettings.Size(),
                       [&](const ConditionLine& line) { reader.Take(line); });
    return set;
}

std::string FormatConditionSet(const ConditionSet& set) {
    std::string text;
    for (const Condition& condition : set) AppendCondition(text, condition);
    return text;
}

}  // namespace brantlow
