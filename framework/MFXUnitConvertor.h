#pragma once

#include "MfxKitExport.h"

// Kinds of quantity that ConversionFromOneUnitToAnother takes.
enum MfxQuantity_e { QuantityLength = 1, QuantityAngle = 2 };

// Codes of the units that rules are stored in. Each quantity has a sequence of its own.
enum MfxLengthUnit_e {
    LengthModelDefault = 0,  // millimetre
    LengthMillimetre = 1,
    LengthCentimetre = 2,
    LengthInch = 3,
    LengthMetre = 4,
    LengthFoot = 5,  // the only one without a label in rule summaries
    LengthMicrometre = 6,
    LengthThou = 7,
    LengthDecimetre = 8,
    LengthYard = 9,
    LengthKilometre = 10,
};
enum MfxAngleUnit_e { AngleDegree = 0, AngleRadian = 1, AngleGradian = 2, AngleArcMinute = 3 };
enum MfxMassUnit_e { MassMilligram = 1, MassGram = 2, MassKilogram = 3, MassTonne = 4, MassPound = 5 };
enum MfxDensityUnit_e {
    DensityKilogramPerCubicMetre = 1,
    DensityGramPerCubicCentimetre = 2,
    DensityTonnePerCubicMetre = 3,
    DensityPoundPerCubicInch = 4,
    DensityPoundPerCubicFoot = 5,
};

// Converts values between units by their exact ratios (1 inch is 25.4 millimetres). A value of an unknown
// quantity, or from or to an unknown unit, comes back unchanged.
class MFXKIT_API CMFXUnitConvertor {
  public:
    double ConversionFromOneUnitToAnother(double value, long nQuantity, long nFromUnit, long nToUnit) const;
    double ConversionFromOneUnitToAnotherForMass(double value, long nFromUnit, long nToUnit) const;
    double ConversionFromOneUnitToAnotherForDensity(double value, long nFromUnit, long nToUnit) const;
};
