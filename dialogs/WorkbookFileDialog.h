#pragma once

#include <afxwin.h>

// Asks for a workbook to import; empty when the user cancels. Begins in the folder of the last import.
CString AskForWorkbook(CWnd* pParent);
