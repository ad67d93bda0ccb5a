#pragma once

#include "MFXConstraint.h"
#include "MfxArray.h"
#include "MfxKitExport.h"
#include "MfxParamStorage.h"
#include "MfxTypes.h"
#include "MfxXMLNode.h"

#include <afxcoll.h>

#include <map>
#include <vector>

class CMfxData;
class MFXICadSys;
class MFXResultSet;

// One parameter of a constraint as a check reads it.
struct ConstraintParametersStruct {
    long nParamId = 0;
    std::vector<double> values;
};

// Base of every rule: the header, the parameters and the constraints, which the rule owns.
// The order of the virtual operations is the slot order that modules and hosts agree on. A rule that does not
// override an operation has the behaviour stated here.
class MFXKIT_API CMfxRule {
  public:
    CMfxRule();
    CMfxRule(const CMfxRule&) = delete;
    CMfxRule& operator=(const CMfxRule&) = delete;

    virtual ~CMfxRule();

    // Creates the rule's parameters with their defaults. Here: none.
    virtual void InitializeParameters();

    // Runs the rule's own check. Here: 0, since the framework checks by the parameters.
    virtual int Execute(MFXICadSys* pCadSys, const CMfxData* pData, MFXResultSet* pResults, int nMode);

    // Fills the rule from its "Rule" element. Here: nothing is read.
    virtual void PopulateFromXML(MfxXMLNode* pNode);

    // A new "Rule" element that holds the rule; the caller owns the wrapper. Here: null.
    virtual MfxXMLNode* BuildXMLNode();

    // Called before a check. Here: nothing.
    virtual void PrepareRule();

    // Converts the stored values from one pair of units to another. Here: nothing.
    virtual void ConvertUnits(const UnitPair& from, const UnitPair& to);

    // Whether the rule takes the data for its check. Here: true.
    virtual bool AcceptRuleData(const CMfxData* pData);

    // Runs the rule's dialog. Here: there is none.
    virtual void ConfigureRuleDialog();

    // Runs the rule's dialog with another picture, which stays the caller's. Here: ConfigureRuleDialog.
    virtual void ConfigureRule(HBITMAP hPicture);

    // Keeps the name of the picture that a host shows beside the rule.
    virtual void SetDialogImageInfo(CString strImage);

    // As Execute, for an assembly. Here: 0.
    virtual int ExecuteAlternate(MFXICadSys* pCadSys, const CMfxData* pData, MFXResultSet* pResults,
                                 int nMode);

    // Takes over everything of the other rule: header, units, and copies of its parameters and constraints.
    virtual CMfxRule& operator=(CMfxRule* pOther);

    // The rule's own parameter with that id, or null.
    virtual CMfxParamStorage* FindParameterInArray(long nParamId);

    // Tells the rule its status in an assembly model. Here: the rule's status becomes it.
    virtual void SetRuleStatusForAssemblyModel(int nStatus);

    // Whether the rule's input is complete. Here: true, since a rule without own input needs none.
    virtual bool ValidateInputData();

    // Name of the input that the rule asks the host for. Here: empty.
    virtual CString GetRequiredInputData() const;

    // Hands over that input. Here: it is not used.
    virtual void SetInputData(CString& strData);

    // Hands over data before a check. Here: it is not used.
    virtual void SetPreExecutionData(CMfxData*& pData);

    virtual int GetRuleId() const;

    // 0 when the rule keeps its limits by material itself. Here: -1, the rule knows no materials.
    virtual int GetMaterialStatus() const;

    // Called when the record has been read. Here: nothing.
    virtual void PostPopulate();

    // 0 when the rule does not depend on a cutter, which is the behaviour here.
    virtual int GetCutterStatus() const;

    // Mends what a check found. Here: nothing.
    virtual void Heal(MFXICadSys* pCadSys, const CMfxData*& pData, const MFXResultSet*& pResults) const;

    // Whether the rule has parameters to set.
    virtual bool IsRuleParametric() const;

    // Whether every id of the map belongs to a parameter of the rule.
    virtual bool ValidateInputParameters(std::map<long, double> values);

    // Creates the constraints that a record lists, each with the parameters named. Here: nothing; rules that
    // have constraints know how to create them.
    virtual void InitConstraints(MfxXMLNode* pNode, const std::vector<long>& paramIds);

    // Finds the named parameters' numbers in every active constraint, by the constraint's name.
    virtual void GetConstraintParameters(
        const std::vector<long>& paramIds,
        std::map<CString, std::vector<ConstraintParametersStruct>>& parameters);

    // The parameter with that id in the first constraint of that name, or null.
    virtual CMfxParamStorage* FindParameterInConstraintArray(const CString& strConstraint, long nParamId);

    // Sets the category and its text.
    void SetRuleCategory(MFXRuleCategory_e category);
    int GetRuleCategoryEnum() const;

    // Creates a parameter, lists it in the rule and returns it; the rule owns it. The parameter is named by
    // the string of the current resource library that has its id. Null for an unknown value type.
    CMfxParamStorage* CreateParamStorageObject(Type_e type, long nParamId, MfxOperator_e op,
                                               MfxParamType_e paramType, bool bActive, bool bReadOnly);

    // Takes a parameter off the rule's list without deleting it; the caller owns it from then on.
    void ReleaseParamStorageObject(CMfxParamStorage* pStorage);

    // Creates a constraint, appends it to the rule's constraints and returns it; the rule owns it.
    CMFXConstraint* CreateConstraintObject(MFXConstraintType_e type, CString strName, bool bActive);

    // Deletes one constraint of the rule, parameters included.
    void DeleteConstraintObject(CMFXConstraint* pConstraint);

    // Deletes all constraints.
    void ClearConstraints();

    CString m_strName;                // in the default language; the key under which records name the rule
    CString m_strDisplayName;         // in the user's language
    CString m_strSummary;             // one line, in the user's language
    CString m_strModule;              // name of the module that the rule comes from
    CString m_strRuleCategory;        // text of the category
    CString m_strRuleModule;          // set by hosts
    CString m_strRuleModuleFileName;  // full path of the module's file, set by hosts
    CStringList m_processList;        // names of the processes that the rule applies to
    int m_nStatus = 0;
    int m_nSeverity = 0;
    int m_nLifeStatus = 0;
    MfxParamArray m_paramArray;
    MfxArray<CMFXConstraint*> m_constraintArray;
    bool m_bPopulated = false;  // true once a record was read
    int m_nRuleId = 0;

    int m_nLengthUnit = UnitPair().m_nLengthUnit;  // units of the stored values, codes of CMFXUnitConvertor
    int m_nAngleUnit = UnitPair().m_nAngleUnit;
    CString m_strDescription;
    CString m_strDialogImage;
    bool m_bParametersCreated = false;

  private:
    void CopyHeader(const CMfxRule& other);

    MFXRuleCategory_e m_category = CategoryNone;
};

// The array that a host hands to a module's GetAllRules.
using MfxRuleArray = MfxArray<CMfxRule*>;
