#pragma once

#include "IMaterialDatabase.h"
#include "LibraryPtr.h"

// The material database's library, loaded. While it is, the dialogs of modules find the database. A host
// loads it before the module, and keeps it longer.
class DatabaseLibrary {
  public:
    // Loads it from the program's folder. Throws DocumentError (ComponentMissing) that names the file.
    DatabaseLibrary();

    // What users read as its name.
    const CString& GetName() const { return m_strName; }
    IMaterialDatabase& GetDatabase() const { return *m_pDatabase; }

  private:
    LibraryPtr m_pLibrary;
    CString m_strName;
    IMaterialDatabase* m_pDatabase = nullptr;
};
