#pragma once

#include "MfxKitExport.h"
#include "MfxParamStorage.h"
#include "MfxXMLNode.h"

class CMfxRule;

// Limits that hold under a condition, for example for one material. Owned by its rule.
//
//   <Constraint Type="1" Value="Steel" Status="1">
//     <Parameter .../>                                   as in the rule's record, see ParameterXml.h
//   </Constraint>
class MFXKIT_API CMFXConstraint {
  public:
    CMFXConstraint(CMfxRule& rule, MFXConstraintType_e type, const CString& strName, bool bActive);
    ~CMFXConstraint();
    CMFXConstraint(const CMFXConstraint&) = delete;
    CMFXConstraint& operator=(const CMFXConstraint&) = delete;

    // A new element that holds the whole constraint, made in the current document; the caller owns the
    // wrapper. Null when there is no current document.
    MfxXMLNode* GetXMLNode();

    // Fills the constraint's parameters from a "Constraint" element; name and active flag stay.
    void PopulateFromXML(MfxXMLNode*& pNode);

    // Moves a parameter from the rule's own list to the constraint.
    void AddParameter(CMfxParamStorage* pStorage);

    // The constraint's parameter with that id, or null.
    CMfxParamStorage* FindParameterInArray(long nParamId) const;

    MFXConstraintType_e m_type;
    CString m_strName;
    bool m_bActive;
    MfxParamArray m_paramArray;

  private:
    CMfxRule& m_rule;
};
