// SPDX-License-Identifier: MIT
// The ready-made sets of selection types, one for each category that can be selected.

#ifndef VEXMATH_SELECTION_SETS_H
#define VEXMATH_SELECTION_SETS_H

#include <vexmath/export.h>
#include <vexmath/select_type.h>

// The sets are built when the library is loaded and destroyed when it is unloaded. In between the
// library never changes one. A caller that does changes it for every user in the process. The
// comment at each set gives its codes, in the order of `getTypes` and `getIndex`.

extern VEXMATH_API uoSelectType_c uo_GenSelLOCATIONS;  ///< -2
extern VEXMATH_API uoSelectType_c uo_GenSelOBJHANDLES; ///< 48

// Bodies: edges, faces, vertices, silhouettes.
extern VEXMATH_API uoSelectType_c uo_GenSelEDGES;         ///< 1
extern VEXMATH_API uoSelectType_c uo_GenSelFACES;         ///< 2
extern VEXMATH_API uoSelectType_c uo_GenSelVERTICES;      ///< 3
extern VEXMATH_API uoSelectType_c uo_GenSelSILHOUETTES;   ///< 46
extern VEXMATH_API uoSelectType_c uo_GenSelSILH_VERTICES; ///< 92

// Datums and references.
extern VEXMATH_API uoSelectType_c uo_GenSelDATUMPLANES;  ///< 4
extern VEXMATH_API uoSelectType_c uo_GenSelDATUMAXES;    ///< 5
extern VEXMATH_API uoSelectType_c uo_GenSelDATUMPOINTS;  ///< 6
extern VEXMATH_API uoSelectType_c uo_GenSelCOORDSYSTEMS; ///< 61
extern VEXMATH_API uoSelectType_c uo_GenSelDATUMLINES;   ///< 62
extern VEXMATH_API uoSelectType_c uo_GenSelMIDPOINTS;    ///< 59
extern VEXMATH_API uoSelectType_c uo_GenSelREFEDGES;     ///< 51
extern VEXMATH_API uoSelectType_c uo_GenSelREFFACES;     ///< 52
extern VEXMATH_API uoSelectType_c uo_GenSelREFSILHOUETS; ///< 53

// Embedded items, attributes, sketches.
extern VEXMATH_API uoSelectType_c uo_GenSelOLEITEMS;       ///< 7
extern VEXMATH_API uoSelectType_c uo_GenSelATTRIBUTES;     ///< 8
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHES;       ///< 9
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHSEGS;     ///< 10
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHPOINTS;   ///< 11, 77
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHTEXT;     ///< 34
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHHATCH;    ///< 56
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHSURFACES; ///< 133

// Drawings: views, dimensions, notes, symbols and lines.
extern VEXMATH_API uoSelectType_c uo_GenSelDRAWINGVIEWS;   ///< 12
extern VEXMATH_API uoSelectType_c uo_GenSelGTOLS;          ///< 13
extern VEXMATH_API uoSelectType_c uo_GenSelDIMENSIONS;     ///< 14
extern VEXMATH_API uoSelectType_c uo_GenSelNOTES;          ///< 15
extern VEXMATH_API uoSelectType_c uo_GenSelSFSYMBOLS;      ///< 35
extern VEXMATH_API uoSelectType_c uo_GenSelSECTIONLINES;   ///< 16
extern VEXMATH_API uoSelectType_c uo_GenSelDETAILCIRCLES;  ///< 17
extern VEXMATH_API uoSelectType_c uo_GenSelCENTERMARKS;    ///< 28
extern VEXMATH_API uoSelectType_c uo_GenSelCENTERMARKSYMS; ///< 100
extern VEXMATH_API uoSelectType_c uo_GenSelBREAKLINES;     ///< 31
extern VEXMATH_API uoSelectType_c uo_GenSelDATUMTAGS;      ///< 36
extern VEXMATH_API uoSelectType_c uo_GenSelDOWELSYMS;      ///< 86
extern VEXMATH_API uoSelectType_c uo_GenSelWELDS;          ///< 38
extern VEXMATH_API uoSelectType_c uo_GenSelWELDBEADS;      ///< 122
extern VEXMATH_API uoSelectType_c uo_GenSelDTMTARGS;       ///< 40
extern VEXMATH_API uoSelectType_c uo_GenSelARROWS;         ///< 49
extern VEXMATH_API uoSelectType_c uo_GenSelCENTERLINES;    ///< 103
extern VEXMATH_API uoSelectType_c uo_GenSelMAGNETLINES;    ///< 225
extern VEXMATH_API uoSelectType_c uo_GenSelTRAILLINES;     ///< 232
extern VEXMATH_API uoSelectType_c uo_GenSelREVCLOUDS;      ///< 240
extern VEXMATH_API uoSelectType_c uo_GenSelSECTIONTEXT;    ///< 18

// Sheets, components and mates, exploded views.
extern VEXMATH_API uoSelectType_c uo_GenSelSHEETS;             ///< 19
extern VEXMATH_API uoSelectType_c uo_GenSelCOMPONENTS;         ///< 20
extern VEXMATH_API uoSelectType_c uo_GenSelVIEWONLYCOMPONENTS; ///< 179
extern VEXMATH_API uoSelectType_c uo_GenSelMATES;              ///< 21
extern VEXMATH_API uoSelectType_c uo_GenSelINCONTEXTFEATS;     ///< 32
extern VEXMATH_API uoSelectType_c uo_GenSelMATEGROUPS;         ///< 33
extern VEXMATH_API uoSelectType_c uo_GenSelCONFIGURATIONS;     ///< 47
extern VEXMATH_API uoSelectType_c uo_GenSelEXPLVIEWS;          ///< 43
extern VEXMATH_API uoSelectType_c uo_GenSelEXPLSTEPS;          ///< 44
extern VEXMATH_API uoSelectType_c uo_GenSelEXPLLINES;          ///< 45

// Features and routes.
extern VEXMATH_API uoSelectType_c uo_GenSelBODYFEATURES;       ///< 22
extern VEXMATH_API uoSelectType_c uo_GenSelREFCURVES;          ///< 23
extern VEXMATH_API uoSelectType_c uo_GenSelFABRICATEDROUTES;   ///< 70
extern VEXMATH_API uoSelectType_c uo_GenSelROUTINGSPOOLFOLDER; ///< 233
extern VEXMATH_API uoSelectType_c uo_GenSelDEFEATURE;          ///< 236
extern VEXMATH_API uoSelectType_c uo_GenSelDEFEATUREFOLDER;    ///< 239

// External sketches, reference geometry, whole bodies.
extern VEXMATH_API uoSelectType_c uo_GenSelEXTSKETCHPOINTS;   ///< 25
extern VEXMATH_API uoSelectType_c uo_GenSelEXTSKETCHSEGS;     ///< 24
extern VEXMATH_API uoSelectType_c uo_GenSelEXTSKETCHTEXT;     ///< 88
extern VEXMATH_API uoSelectType_c uo_GenSelEXTSKETCHSURFACES; ///< 134
extern VEXMATH_API uoSelectType_c uo_GenSelREFERENCECURVES;   ///< 26
extern VEXMATH_API uoSelectType_c uo_GenSelREFSURFACES;       ///< 27
extern VEXMATH_API uoSelectType_c uo_GenSelWIREBODIES;        ///< 74
extern VEXMATH_API uoSelectType_c uo_GenSelSURFACEBODIES;     ///< 75
extern VEXMATH_API uoSelectType_c uo_GenSelSOLIDBODIES;       ///< 76

// Threads, tables, routing, folders, sketch regions.
extern VEXMATH_API uoSelectType_c uo_GenSelCTHREADS;         ///< 39
extern VEXMATH_API uoSelectType_c uo_GenSelCROSSBREAKS;      ///< 201
extern VEXMATH_API uoSelectType_c uo_GenSelBOMS;             ///< 54
extern VEXMATH_API uoSelectType_c uo_GenSelANNOTATIONTABLES; ///< 98
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHPNTFEAT;    ///< 71, 66, 65
extern VEXMATH_API uoSelectType_c uo_GenSelCONNECTIONPOINTS; ///< 66
extern VEXMATH_API uoSelectType_c uo_GenSelROUTINGPOINTS;    ///< 65
extern VEXMATH_API uoSelectType_c uo_GenSelROUTESEGMENT;     ///< 120
extern VEXMATH_API uoSelectType_c uo_GenSelMANIPULATORS;     ///< 79
extern VEXMATH_API uoSelectType_c uo_GenSelHOLESERIES;       ///< 83
extern VEXMATH_API uoSelectType_c uo_GenSelFTRFOLDER;        ///< 94
extern VEXMATH_API uoSelectType_c uo_GenSelBDYFOLDER;        ///< 118
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHREGION;     ///< 95
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHCONTOUR;    ///< 96

// QUIRK: selection_sets.h, uoGenSelCOMPPATTERN: the name has no underscore after `uo`. Expected:
// one, as in all other names. Kept: callers link to the exported name.
// (test: EverySetHoldsItsCodesInOrder)
extern VEXMATH_API uoSelectType_c uoGenSelCOMPPATTERN; ///< 37 (no underscore after `uo`)

extern VEXMATH_API uoSelectType_c uo_GenSelSUBWELDFOLDER;    ///< 107
extern VEXMATH_API uoSelectType_c uo_GenSelFACETEDEDGE;      ///< 108
extern VEXMATH_API uoSelectType_c uo_GenSelFACETEDFACE;      ///< 109
extern VEXMATH_API uoSelectType_c uo_GenSelFACETEDVERTEX;    ///< 110
extern VEXMATH_API uoSelectType_c uo_GenSelREVISIONTABLE;    ///< 113
extern VEXMATH_API uoSelectType_c uo_GenSelSUBATOMFOLDER;    ///< 121
extern VEXMATH_API uoSelectType_c uo_GenSelQUILLANNOTATIONS; ///< 130, 132
extern VEXMATH_API uoSelectType_c uo_GenSelQUILLFEATURES;    ///< 132
extern VEXMATH_API uoSelectType_c uo_GenSelADDINPOINT;       ///< 158

// Ghosts, sections, leaders, cosmetic welds.
extern VEXMATH_API uoSelectType_c uo_GenSelGHOSTEDGE;             ///< 161
extern VEXMATH_API uoSelectType_c uo_GenSelGHOSTFACE;             ///< 162
extern VEXMATH_API uoSelectType_c uo_GenSelGHOSTVERTEX;           ///< 163
extern VEXMATH_API uoSelectType_c uo_GenSelGHOSTSURFACEBODY;      ///< 164
extern VEXMATH_API uoSelectType_c uo_GenSelGHOSTGEOMPLANE;        ///< 172
extern VEXMATH_API uoSelectType_c uo_GenSelGHOSTGEOMAXIS;         ///< 173
extern VEXMATH_API uoSelectType_c uo_GenSelSIMELEMENT;            ///< 102
extern VEXMATH_API uoSelectType_c uo_GenSelGHOSTEXTSKETCHITEMS;   ///< 177
extern VEXMATH_API uoSelectType_c uo_GenSelLIVESECTION;           ///< 194
extern VEXMATH_API uoSelectType_c uo_GenSelLIVESECTIONFOLDER;     ///< 193
extern VEXMATH_API uoSelectType_c uo_GenSelANNLEADER;             ///< 207
extern VEXMATH_API uoSelectType_c uo_GenSelPLANESECTION;          ///< 219
extern VEXMATH_API uoSelectType_c uo_GenSelPLANESECTIONFOLDER;    ///< 218
extern VEXMATH_API uoSelectType_c uo_GenSelCOSMETICWELDSUBFOLDER; ///< 221
extern VEXMATH_API uoSelectType_c uo_GenSelCOSMETICWELDFEAT;      ///< 220

// Empty, or composed of the codes of several categories.
extern VEXMATH_API uoSelectType_c uo_GenSelNOTHING;     ///< empty
extern VEXMATH_API uoSelectType_c uo_GenSelBODYENTS;    ///< 1, 2, 3, 46, 92, 109, 108, 110
extern VEXMATH_API uoSelectType_c uo_GenSelDATUMGEOM;   ///< 4, 5, 6, 61, 62, 65, 66, 71, 243
extern VEXMATH_API uoSelectType_c uo_GenSelREFGEOMENTS; ///< 51, 52
extern VEXMATH_API uoSelectType_c uo_GenSelSKETCHITEMS; ///< 10, 114, 11, 34, 56, 77, 133, 196
/// 13, 14, 15, 35, 16, 17, 28, 100, 31, 36, 86, 38, 122, 39, 40, 42, 49, 54, 95, 96, 98, 97, 60,
/// 93, 84, 103, 105, 113, 116, 225, 232, 240
extern VEXMATH_API uoSelectType_c uo_GenSelDIMITEMS;
/// 15, 36, 86, 40, 13, 14, 38, 122, 35, 84, 103, 100, 105, 113, 225, 232, 240
extern VEXMATH_API uoSelectType_c uo_GenSelANNOTATIONS;
extern VEXMATH_API uoSelectType_c uo_GenSelDETAILFEATS;      ///< 16, 17, 28, 31, 42, 39
extern VEXMATH_API uoSelectType_c uo_GenSelASSEMITEMS;       ///< 20, 32, 33, 21, 70
extern VEXMATH_API uoSelectType_c uo_GenSelEXTSKETCHITEMS;   ///< 25, 24, 88, 197
extern VEXMATH_API uoSelectType_c uo_GenSelSURFBODIESFIRST;  ///< 78, 75
extern VEXMATH_API uoSelectType_c uo_GenSelSOLIDBODIESFIRST; ///< 81, 76
extern VEXMATH_API uoSelectType_c uo_GenSelUNSUPPORTED;      ///< empty

#endif
