// SPDX-License-Identifier: MIT
// The ready-made sets of selection types: the codes of each, in order.

#include <vexmath/selection_sets.h>

#include <initializer_list>

namespace {

constexpr uoSelTypes_e code(int number) { return static_cast<uoSelTypes_e>(number); }

} // namespace

// All in this one file, so that they are built from top to bottom when the library is loaded and
// destroyed from bottom to top when it is unloaded.

// First pass: at most one code each.

uoSelectType_c uo_GenSelLOCATIONS(code(-2));
uoSelectType_c uo_GenSelOBJHANDLES(code(48));
uoSelectType_c uo_GenSelEDGES(code(1));
uoSelectType_c uo_GenSelFACES(code(2));
uoSelectType_c uo_GenSelVERTICES(code(3));
uoSelectType_c uo_GenSelSILHOUETTES(code(46));
uoSelectType_c uo_GenSelSILH_VERTICES(code(92));
uoSelectType_c uo_GenSelDATUMPLANES(code(4));
uoSelectType_c uo_GenSelDATUMAXES(code(5));
uoSelectType_c uo_GenSelDATUMPOINTS(code(6));
uoSelectType_c uo_GenSelCOORDSYSTEMS(code(61));
uoSelectType_c uo_GenSelDATUMLINES(code(62));
uoSelectType_c uo_GenSelMIDPOINTS(code(59));
uoSelectType_c uo_GenSelREFEDGES(code(51));
uoSelectType_c uo_GenSelREFFACES(code(52));
uoSelectType_c uo_GenSelREFSILHOUETS(code(53));
uoSelectType_c uo_GenSelOLEITEMS(code(7));
uoSelectType_c uo_GenSelATTRIBUTES(code(8));
uoSelectType_c uo_GenSelSKETCHES(code(9));
uoSelectType_c uo_GenSelSKETCHSEGS(code(10));
uoSelectType_c uo_GenSelSKETCHPOINTS(code(11));
uoSelectType_c uo_GenSelSKETCHTEXT(code(34));
uoSelectType_c uo_GenSelSKETCHHATCH(code(56));
uoSelectType_c uo_GenSelSKETCHSURFACES(code(133));
uoSelectType_c uo_GenSelDRAWINGVIEWS(code(12));
uoSelectType_c uo_GenSelGTOLS(code(13));
uoSelectType_c uo_GenSelDIMENSIONS(code(14));
uoSelectType_c uo_GenSelNOTES(code(15));
uoSelectType_c uo_GenSelSFSYMBOLS(code(35));
uoSelectType_c uo_GenSelSECTIONLINES(code(16));
uoSelectType_c uo_GenSelDETAILCIRCLES(code(17));
uoSelectType_c uo_GenSelCENTERMARKS(code(28));
uoSelectType_c uo_GenSelCENTERMARKSYMS(code(100));
uoSelectType_c uo_GenSelBREAKLINES(code(31));
uoSelectType_c uo_GenSelDATUMTAGS(code(36));
uoSelectType_c uo_GenSelDOWELSYMS(code(86));
uoSelectType_c uo_GenSelWELDS(code(38));
uoSelectType_c uo_GenSelWELDBEADS(code(122));
uoSelectType_c uo_GenSelDTMTARGS(code(40));
uoSelectType_c uo_GenSelARROWS(code(49));
uoSelectType_c uo_GenSelCENTERLINES(code(103));
uoSelectType_c uo_GenSelMAGNETLINES(code(225));
uoSelectType_c uo_GenSelTRAILLINES(code(232));
uoSelectType_c uo_GenSelREVCLOUDS(code(240));
uoSelectType_c uo_GenSelSECTIONTEXT(code(18));
uoSelectType_c uo_GenSelSHEETS(code(19));
uoSelectType_c uo_GenSelCOMPONENTS(code(20));
uoSelectType_c uo_GenSelVIEWONLYCOMPONENTS(code(179));
uoSelectType_c uo_GenSelMATES(code(21));
uoSelectType_c uo_GenSelINCONTEXTFEATS(code(32));
uoSelectType_c uo_GenSelMATEGROUPS(code(33));
uoSelectType_c uo_GenSelCONFIGURATIONS(code(47));
uoSelectType_c uo_GenSelEXPLVIEWS(code(43));
uoSelectType_c uo_GenSelEXPLSTEPS(code(44));
uoSelectType_c uo_GenSelEXPLLINES(code(45));
uoSelectType_c uo_GenSelBODYFEATURES(code(22));
uoSelectType_c uo_GenSelREFCURVES(code(23));
uoSelectType_c uo_GenSelFABRICATEDROUTES(code(70));
uoSelectType_c uo_GenSelROUTINGSPOOLFOLDER(code(233));
uoSelectType_c uo_GenSelDEFEATURE(code(236));
uoSelectType_c uo_GenSelDEFEATUREFOLDER(code(239));
uoSelectType_c uo_GenSelEXTSKETCHPOINTS(code(25));
uoSelectType_c uo_GenSelEXTSKETCHSEGS(code(24));
uoSelectType_c uo_GenSelEXTSKETCHTEXT(code(88));
uoSelectType_c uo_GenSelEXTSKETCHSURFACES(code(134));
uoSelectType_c uo_GenSelREFERENCECURVES(code(26));
uoSelectType_c uo_GenSelREFSURFACES(code(27));
uoSelectType_c uo_GenSelWIREBODIES(code(74));
uoSelectType_c uo_GenSelSURFACEBODIES(code(75));
uoSelectType_c uo_GenSelSOLIDBODIES(code(76));
uoSelectType_c uo_GenSelCTHREADS(code(39));
uoSelectType_c uo_GenSelCROSSBREAKS(code(201));
uoSelectType_c uo_GenSelBOMS(code(54));
uoSelectType_c uo_GenSelANNOTATIONTABLES(code(98));
uoSelectType_c uo_GenSelSKETCHPNTFEAT(code(71));
uoSelectType_c uo_GenSelCONNECTIONPOINTS(code(66));
uoSelectType_c uo_GenSelROUTINGPOINTS(code(65));
uoSelectType_c uo_GenSelROUTESEGMENT(code(120));
uoSelectType_c uo_GenSelMANIPULATORS(code(79));
uoSelectType_c uo_GenSelHOLESERIES(code(83));
uoSelectType_c uo_GenSelFTRFOLDER(code(94));
uoSelectType_c uo_GenSelBDYFOLDER(code(118));
uoSelectType_c uo_GenSelSKETCHREGION(code(95));
uoSelectType_c uo_GenSelSKETCHCONTOUR(code(96));
uoSelectType_c uoGenSelCOMPPATTERN(code(37));
uoSelectType_c uo_GenSelSUBWELDFOLDER(code(107));
uoSelectType_c uo_GenSelFACETEDEDGE(code(108));
uoSelectType_c uo_GenSelFACETEDFACE(code(109));
uoSelectType_c uo_GenSelFACETEDVERTEX(code(110));
uoSelectType_c uo_GenSelREVISIONTABLE(code(113));
uoSelectType_c uo_GenSelSUBATOMFOLDER(code(121));
uoSelectType_c uo_GenSelQUILLANNOTATIONS(code(130));
uoSelectType_c uo_GenSelQUILLFEATURES(code(132));
uoSelectType_c uo_GenSelADDINPOINT(code(158));
uoSelectType_c uo_GenSelGHOSTEDGE(code(161));
uoSelectType_c uo_GenSelGHOSTFACE(code(162));
uoSelectType_c uo_GenSelGHOSTVERTEX(code(163));
uoSelectType_c uo_GenSelGHOSTSURFACEBODY(code(164));
uoSelectType_c uo_GenSelGHOSTGEOMPLANE(code(172));
uoSelectType_c uo_GenSelGHOSTGEOMAXIS(code(173));
uoSelectType_c uo_GenSelSIMELEMENT(code(102));
uoSelectType_c uo_GenSelGHOSTEXTSKETCHITEMS(code(177));
uoSelectType_c uo_GenSelLIVESECTION(code(194));
uoSelectType_c uo_GenSelLIVESECTIONFOLDER(code(193));
uoSelectType_c uo_GenSelANNLEADER(code(207));
uoSelectType_c uo_GenSelPLANESECTION(code(219));
uoSelectType_c uo_GenSelPLANESECTIONFOLDER(code(218));
uoSelectType_c uo_GenSelCOSMETICWELDSUBFOLDER(code(221));
uoSelectType_c uo_GenSelCOSMETICWELDFEAT(code(220));

uoSelectType_c uo_GenSelNOTHING;
uoSelectType_c uo_GenSelBODYENTS;
uoSelectType_c uo_GenSelDATUMGEOM;
uoSelectType_c uo_GenSelREFGEOMENTS;
uoSelectType_c uo_GenSelSKETCHITEMS;
uoSelectType_c uo_GenSelDIMITEMS;
uoSelectType_c uo_GenSelANNOTATIONS;
uoSelectType_c uo_GenSelDETAILFEATS;
uoSelectType_c uo_GenSelASSEMITEMS;
uoSelectType_c uo_GenSelEXTSKETCHITEMS;
uoSelectType_c uo_GenSelSURFBODIESFIRST;
uoSelectType_c uo_GenSelSOLIDBODIESFIRST;
uoSelectType_c uo_GenSelUNSUPPORTED;

// Second pass: the codes of the composite sets, behind the one that some of them already hold.

namespace {

void append(uoSelectType_c &set, std::initializer_list<int> numbers) {
    for (int const number : numbers) set.add(code(number));
}

bool compose() {
    append(uo_GenSelEXTSKETCHITEMS, {25, 24, 88, 197});
    append(uo_GenSelSKETCHPNTFEAT, {66, 65});
    append(uo_GenSelASSEMITEMS, {20, 32, 33, 21, 70});
    append(uo_GenSelDIMITEMS,
           {13, 14, 15, 35, 16, 17, 28, 100, 31, 36,  86,  38,  122, 39,  40,  42,
            49, 54, 95, 96, 98, 97, 60, 93,  84, 103, 105, 113, 116, 225, 232, 240});
    append(uo_GenSelANNOTATIONS,
           {15, 36, 86, 40, 13, 14, 38, 122, 35, 84, 103, 100, 105, 113, 225, 232, 240});
    append(uo_GenSelSKETCHITEMS, {10, 114, 11, 34, 56, 77, 133, 196});
    append(uo_GenSelSKETCHPOINTS, {77});
    append(uo_GenSelBODYENTS, {1, 2, 3, 46, 92, 109, 108, 110});
    append(uo_GenSelDATUMGEOM, {4, 5, 6, 61, 62, 65, 66, 71, 243});
    append(uo_GenSelREFGEOMENTS, {51, 52});
    append(uo_GenSelDETAILFEATS, {16, 17, 28, 31, 42, 39});
    append(uo_GenSelSURFBODIESFIRST, {78, 75});
    append(uo_GenSelSOLIDBODIESFIRST, {81, 76});
    append(uo_GenSelQUILLANNOTATIONS, {132});
    return true;
}

[[maybe_unused]] bool const composed = compose();

} // namespace
