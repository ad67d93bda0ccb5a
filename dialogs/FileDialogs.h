#pragma once

#include <afxdlgs.h>

// The path that the user chooses; empty when the user cancels. The current folder, which is the host's,
// stays.
CString AskForPath(CFileDialog& dialog);

// Asks for a workbook to import; empty when the user cancels. Begins in the folder of the last import.
CString AskForWorkbook(CWnd* pParent);
