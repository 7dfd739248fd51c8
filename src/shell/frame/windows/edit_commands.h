// What a person does to the tickers of the open table: adding, deleting, alarms, sorting.
#pragma once

#include <string>

#include "shell/frame/windows/frame_hands.h"
#include "store/table_edit.h"
#include "store/table_sort.h"

namespace brantlow {

struct AddedTicker;

class EditCommands final {
  public:
    explicit EditCommands(const FrameHands& frame) : frame_(frame) {}

    CommandRows Rows();

  private:
    void AddSymbol();
    void DeleteSymbol();
    void EditAlarm();
    void SortAscending();
    void SortDescending();
    void Sort(SortOrder order);
    bool AsksToDeleteHistory(const std::string& ticker);
    void TellEdit(const TableEdit& edit);
    void TellAdded(const AddedTicker& added);

    const FrameHands& frame_;
};

}  // namespace brantlow
