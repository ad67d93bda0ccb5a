/* Ids of the resource libraries. The numbers are shared with hosts and saved records: never change one. */
#pragma once

/* Length units in dialogs, in the order of the unit codes from 1 on */
#define IDS_UNIT_MILLIMETRE 10000
#define IDS_UNIT_CENTIMETRE 10001
#define IDS_UNIT_INCH 10002
#define IDS_UNIT_METRE 10003
#define IDS_UNIT_FOOT 10004

/* Unit labels in summaries, by unit code (codes: framework/MFXUnitConvertor.h) */
#define IDS_SUMMARY_MODEL_UNIT 10005
#define IDS_SUMMARY_MILLIMETRE 10006
#define IDS_SUMMARY_CENTIMETRE 10007
#define IDS_SUMMARY_INCH 10008
#define IDS_SUMMARY_METRE 10009
#define IDS_SUMMARY_MICROMETRE 10010
#define IDS_SUMMARY_THOU 10011
#define IDS_SUMMARY_DECIMETRE 10012
#define IDS_SUMMARY_YARD 10013
#define IDS_SUMMARY_KILOMETRE 10014
#define IDS_SUMMARY_DEGREE 10015
#define IDS_SUMMARY_RADIAN 10016
#define IDS_SUMMARY_GRADIAN 10017
#define IDS_SUMMARY_ARC_MINUTE 10018

/* Rule records */
#define IDS_UNKNOWN_PARAMETER_TYPE 10019

/* Every rule dialog; the first two are loaded by framework/MFXRuleDlgBase.cpp */
#define IDS_HELP_MISSING 10020 /* path of the help file */
#define IDS_NOTHING_TO_EDIT 10021
#define IDS_DATABASE_MISSING 10022
#define IDS_DATABASE_UNUSABLE 10023
#define IDS_DATABASE_NO_DATA 10024
#define IDS_VALUE_IS_ZERO 10120

/* Grids of the rule dialogs */
#define IDS_MAXIMUM_BELOW_MINIMUM 10107
#define IDS_ALREADY_IN_TABLE 10108 /* follows a name and a blank */
#define IDS_DEFAULT 10133          /* also the placeholder in the list of material groups */

/* Import of a workbook's columns */
#define IDS_WORKBOOK_NOT_FOUND 29139
#define IDS_WORKBOOK_NOT_OPENED 29141
#define IDS_EXCEL_NOT_STARTED 29142
#define IDS_EXCEL_NOT_INSTALLED 29143

/* The module */
#define IDS_MODULE_NAME 10061
#define IDS_MODULE_SUMMARY 10062
#define IDS_PROCESS 10116

/* Variable draft angle */
#define IDS_DRAFT_ANGLE_TABLE 29183 /* also the parameter's id */
#define IDS_DRAFT_RULE_NAME 29192
#define IDS_DRAFT_RULE_SUMMARY 29193

#define IDD_DRAFT 29175
#define IDC_DRAFT_LEGEND 29176
#define IDC_DRAFT_BANDS 29177
#define IDC_DRAFT_LENGTH_UNIT 29178
#define IDC_DRAFT_PICTURE 29179
#define IDC_DRAFT_IMPORT 29180
#define IDB_DRAFT_PICTURE 29207
#define IDS_DRAFT_SIZES 29184  /* heading; a unit in parentheses follows */
#define IDS_DRAFT_ANGLES 29185 /* heading; a unit in parentheses follows */
#define IDS_DRAFT_LOWER_BOUND 29186
#define IDS_DRAFT_UPPER_BOUND 29187
#define IDS_DRAFT_FIRST_ANGLE 29188
#define IDS_DRAFT_SECOND_ANGLE 29190
#define IDS_DRAFT_THIRD_ANGLE 29191
#define IDS_DRAFT_NO_BANDS 29182
#define IDS_DRAFT_UPPER_NOT_ABOVE_LOWER 29197 /* row */
#define IDS_DRAFT_INCOMPLETE_ROW 29198        /* row */
#define IDS_DRAFT_NOT_CONTIGUOUS 29199        /* upper bound of the row before, row */
#define IDS_DRAFT_WRONG_HEADINGS 29181
#define IDS_DRAFT_UNEVEN_COLUMNS 29200
#define IDS_DRAFT_TOO_MANY_BANDS 29201
#define IDS_DRAFT_NOT_IMPORTED 29202 /* what is wrong with the table of the sheet */
#define IDS_DRAFT_HEADING_FONT 29205 /* typeface that has the language's characters */
#define IDS_DRAFT_NO_NUMBER 29206    /* cell, its text */
#define IDS_DRAFT_BANDS_TIP 29203
#define IDS_DRAFT_IMPORT_TIP 29204

/* Uniform wall thickness; the ids of the limits are also the parameters' ids */
#define IDS_UNIFORM_RULE_NAME 10063
#define IDS_UNIFORM_SUMMARY_MINIMUM 10065 /* label, value, unit */
#define IDS_UNIFORM_SUMMARY_MAXIMUM 10066 /* label, value, unit */
#define IDS_UNIFORM_MINIMUM 10067
#define IDS_UNIFORM_MAXIMUM 10068
#define IDS_UNIFORM_SUMMARY_LABEL 10069
#define IDS_UNIFORM_SUMMARY_BY_MATERIAL 10072

#define IDD_UNIFORM 10102
#define IDC_UNIFORM_PICTURE 10090
#define IDC_UNIFORM_COMMON 10091
#define IDC_UNIFORM_MINIMUM_ON 10092
#define IDC_UNIFORM_MINIMUM 10093
#define IDC_UNIFORM_MINIMUM_UNIT 10094
#define IDC_UNIFORM_MAXIMUM_ON 10095
#define IDC_UNIFORM_MAXIMUM 10096
#define IDC_UNIFORM_MAXIMUM_UNIT 10097
#define IDC_UNIFORM_BY_MATERIAL 10098
#define IDC_UNIFORM_GROUP_LABEL 10099
#define IDC_UNIFORM_GROUP 10100
#define IDC_UNIFORM_DELETE_ROWS 10101
#define IDC_UNIFORM_MATERIALS 10103
#define IDB_UNIFORM_PICTURE 10104
#define IDS_UNIFORM_MATERIAL_HEADING 10073
#define IDS_UNIFORM_MINIMUM_HEADING 10074 /* a unit in parentheses follows */
#define IDS_UNIFORM_MAXIMUM_HEADING 10075 /* a unit in parentheses follows */
#define IDS_UNIFORM_ROW_NO_MATERIAL 10076 /* row */
#define IDS_UNIFORM_ROW_NO_NUMBER 10077   /* row */
#define IDS_UNIFORM_ROW_ORDER 10078       /* row */
#define IDS_UNIFORM_ROW_TWICE 10079       /* row */
#define IDS_UNIFORM_NO_MATERIALS 10080
#define IDS_UNIFORM_NO_NUMBER 10081 /* label of the limit */
#define IDS_UNIFORM_GROUP_TIP 10082

/* Wall thickness by cast size and weight; the ids of limits and mass unit are also the parameters' ids */
#define IDS_SIZE_WEIGHT_RULE_NAME 10122
#define IDS_SIZE_WEIGHT_SUMMARY 10123
#define IDS_SIZE_WEIGHT_MASS_UNIT 10165
#define IDS_SIZE_WEIGHT_THICKNESS 29118
#define IDS_SIZE_WEIGHT_SIZE_MIN 29119
#define IDS_SIZE_WEIGHT_SIZE_MAX 29120
#define IDS_SIZE_WEIGHT_WEIGHT_MIN 29121
#define IDS_SIZE_WEIGHT_WEIGHT_MAX 29122

#define IDD_SIZE_WEIGHT 29123
#define IDC_SIZE_WEIGHT_PICTURE 29111
#define IDC_SIZE_WEIGHT_GROUPS 29113
#define IDC_SIZE_WEIGHT_BANDS 29114
#define IDC_SIZE_WEIGHT_LENGTH_UNIT 29115
#define IDC_SIZE_WEIGHT_DATABASE 29117
#define IDC_SIZE_WEIGHT_MASS_UNIT 10158
#define IDC_SIZE_WEIGHT_CURRENT_GROUP 10164
#define IDC_SIZE_WEIGHT_MASS_CAPTION 10166
#define IDC_SIZE_WEIGHT_OK_HINT 10167
#define IDB_SIZE_WEIGHT_PICTURE 29132
#define IDS_SIZE_WEIGHT_GROUPS 10132
#define IDS_SIZE_WEIGHT_SIZE_FROM 10152
#define IDS_SIZE_WEIGHT_SIZE_TO 10153
#define IDS_SIZE_WEIGHT_WEIGHT_FROM 10154
#define IDS_SIZE_WEIGHT_WEIGHT_TO 10155
#define IDS_SIZE_WEIGHT_THICKNESS_HEADING 10156
#define IDS_SIZE_WEIGHT_MASS_CAPTION 29131 /* text that goes before, mass unit */
#define IDS_SIZE_WEIGHT_NO_GROUP 29128
#define IDS_SIZE_WEIGHT_GROUP_EXISTS 10134 /* group */
#define IDS_SIZE_WEIGHT_EMPTY_GROUPS 10149 /* groups, each on a line of its own */
#define IDS_SIZE_WEIGHT_NO_BANDS 10137
#define IDS_SIZE_WEIGHT_MISSING_OR_ZERO 29137 /* row */
#define IDS_SIZE_WEIGHT_INCOMPLETE 10144      /* what, row */
#define IDS_SIZE_WEIGHT_CAST_SIZE 29124
#define IDS_SIZE_WEIGHT_CAST_WEIGHT 29125
#define IDS_SIZE_WEIGHT_CAST_SIZE_AND_WEIGHT 29126
#define IDS_SIZE_WEIGHT_WALL_THICKNESS 29127
#define IDS_SIZE_WEIGHT_SIZE_INVERTED 29136         /* row */
#define IDS_SIZE_WEIGHT_WEIGHT_INVERTED 10141       /* row */
#define IDS_SIZE_WEIGHT_SIZE_NOT_CONTIGUOUS 29138   /* upper size before, row */
#define IDS_SIZE_WEIGHT_WEIGHT_NOT_CONTIGUOUS 10157 /* upper weight before, row */

/* Mass units; records store the label, so it is the same in every language */
#define IDS_MASS_TONNE 29100
#define IDS_MASS_GRAM 29101
#define IDS_MASS_KILOGRAM 29102
#define IDS_MASS_MILLIGRAM 29103
#define IDS_MASS_POUND 29109

/* Wall-thickness variation */
#define IDS_VARIATION_VALUE 29167 /* also the parameter's id */
#define IDS_VARIATION_RULE_NAME 29168
#define IDS_VARIATION_SUMMARY 29169 /* value */
#define IDS_VARIATION_DESCRIPTION 29170
#define IDD_VARIATION 29164
#define IDC_VARIATION_VALUE 29165
#define IDC_VARIATION_LENGTH_UNIT 29166
