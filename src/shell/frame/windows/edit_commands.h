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

    // The ticker of the row that was deleted last and is not saved; empty where there is none. Putting it
    // back.
    std::string RowToRestore() const;
    void RestoreDeletedRow();

  private:
    void CopyRows();
    void SelectAllRows();
    void FindRows();
    bool RefusesAlarms(const NewTicker& typed);
    void AddSymbol();
    void DeleteSymbol();
    void EditAlarm();
    void SortAscending();
    void SortDescending();
    void Sort(SortOrder order);
    void TellEdit(const TableEdit& edit);
    void TellAdded(const AddedTicker& added);

    const FrameHands& frame_;
    // Of the table of this name.
    RemovedRow removed_;
    std::string removedFrom_;
};

}  // namespace brantlow
