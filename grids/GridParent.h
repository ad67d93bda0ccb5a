#pragma once

#include <afx.h>

class CMFXListCtrl;

// What the size-and-weight grids tell their dialog.
enum GridNotification {
    GridGroupSelected = 100,  // a group was selected by click or key; its name
    GridCellCommitted = 101,  // a cell of the band grid was committed; its text
    GridCellTyped = 102,      // a text is being typed into such a cell, or was given up
    GridGroupNamed = 103,     // a group's name was chosen
};

// A dialog with such grids.
class IGridParent {
  public:
    virtual void OnGridNotify(const CString& strText, int nCode) = 0;

    // The grid has no material groups to offer and asks the dialog for them.
    virtual void SupplyMaterialGroups(CMFXListCtrl& grid) = 0;

  protected:
    ~IGridParent() = default;
};
