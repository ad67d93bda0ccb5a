/* Ids of the resource libraries. The numbers are shared with hosts and saved records: never change one. */
#pragma once

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

/* The module */
#define IDS_MODULE_NAME 10061
#define IDS_MODULE_SUMMARY 10062
#define IDS_PROCESS 10116

/* Variable draft angle */
#define IDS_DRAFT_ANGLE_TABLE 29183 /* also the parameter's id */
#define IDS_DRAFT_RULE_NAME 29192
#define IDS_DRAFT_RULE_SUMMARY 29193
