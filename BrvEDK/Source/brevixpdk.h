// The chief header of BrvEDK: every service of the host that an extension can call.
#pragma once

#include "hostrecords.h"
#include "hosttypes.h"

#ifdef __cplusplus
extern "C" {
#endif

// Frames and entries
BRV_EXPORT HostResult BX_LoadTGF(ushort16 a1, short16 a2, short16 a3, short16 a4, short16 a5, BrvVersion version);
BRV_EXPORT short16 BX_InsertEXENTRY(void* a1, short16 a2, short16 a3, BrvVersion version);
BRV_EXPORT short16 BX_DeleteEXENTRY(void* a1, short16 a2, short16 a3, BrvVersion version);
BRV_EXPORT short16 BX_SaveTGF(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_FreeTGF(void* a1, BrvVersion version);
BRV_EXPORT short16 BX_RebeamRegion(void* a1, void* a2, BrvVersion version);
BRV_EXPORT short16 BX_RebarRegion(void* a1, ushort16 a2, short16 a3, short16 a4, short16 a5, BrvVersion version);
BRV_EXPORT HostResult BX_NoteMover(void* a1, void* a2, short16 a3, short16 a4, short16 a5, BrvVersion version);
BRV_EXPORT HostResult BX_SelectNote(void* a1, short16 a2, BrvVersion version);
BRV_EXPORT HostResult BX_GetTGFDuration(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_ReduceEntries(void* a1, BrvVersion version);
BRV_EXPORT short16 BX_MassMoverMac(void* a1, void* a2, BrvVersion version);
BRV_EXPORT short16 BX_AnalyzeChord(void* a1, void* a2, void* a3, BrvVersion version);
BRV_EXPORT HostResult BX_CheckBrv2012Accidentals(BrvVersion version);

// Edit brackets and progress
BRV_EXPORT HostResult BX_StartMassEdit(void* a1, int32 a2, BrvVersion version);
BRV_EXPORT HostResult BX_EndMassEdit(void* a1, short16 a2, BrvVersion version);
BRV_EXPORT short16 BX_MassEditProgress(void* a1, short16 a2, short16 a3, short16 a4, short16 a5, BrvVersion version);
BRV_EXPORT HostResult BX_StartBrevixEdit(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_StartBrevixEdit_UTF16(void* a1, BrvVersion version);
BRV_EXPORT short16 BX_EndBrevixEdit(BrvVersion version);
BRV_EXPORT HostResult BX_CancelBrevixEdit(BrvVersion version);

// Dialogs and dialog items
BRV_EXPORT HostResult BX_Dialog(short16 a1, void* a2, void* a3, short16 a4, void* a5, BrvVersion version);
BRV_EXPORT HostResult BX_EndDialog(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_EnableDlgItem(void* a1, short16 a2, short16 a3, BrvVersion version);
BRV_EXPORT HostResult BX_ShowHideDlgItem(void* a1, short16 a2, short16 a3, BrvVersion version);
BRV_EXPORT HostResult BX_SetDlgFocus(void* a1, short16 a2, BrvVersion version);
BRV_EXPORT HostResult BX_GetDlgCntlVal(void* a1, short16 a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT HostResult BX_SetDlgCntlVal(void* a1, short16 a2, void* a3, int32 a4, BrvVersion version);
BRV_EXPORT HostResult BX_GetDlgCntlVal_UTF16(void* a1, short16 a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT HostResult BX_SetDlgCntlVal_UTF16(void* a1, short16 a2, void* a3, int32 a4, BrvVersion version);
BRV_EXPORT HostResult BX_GetDlgCntl(void* a1, short16 a2, BrvVersion version);
BRV_EXPORT HostResult BX_SetTimer(void* a1, short16 a2, int32 a3, BrvVersion version);
BRV_EXPORT HostResult BX_KillTimer(void* a1, short16 a2, BrvVersion version);
BRV_EXPORT HostResult BX_GetDlgItemUser(void* a1, short16 a2, short16 a3, void* a4, BrvVersion version);
BRV_EXPORT HostResult BX_SetDlgItemUser(void* a1, short16 a2, short16 a3, int32 a4, BrvVersion version);
BRV_EXPORT short16 BX_SymbolDialog(void* a1, void* a2, void* a3, BrvVersion version);
BRV_EXPORT short16 BX_SymbolDialog_UTF32(void* a1, void* a2, void* a3, BrvVersion version);
BRV_EXPORT short16 BX_SelectionDialog(void* a1, short16 a2, void* a3, void* a4, BrvVersion version);
BRV_EXPORT HostResult BX_GetDlgItemVal(void* a1, short16 a2, short16 a3, BrvVersion version);
BRV_EXPORT HostResult BX_SetDlgItemVal(void* a1, short16 a2, short16 a3, int32 a4, BrvVersion version);
BRV_EXPORT HostResult BX_GetDlgString(void* a1, short16 a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT HostResult BX_GetDlgString_UTF16(void* a1, short16 a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT HostResult BX_SetDlgString(void* a1, short16 a2, void* a3, BrvVersion version);
BRV_EXPORT HostResult BX_SetDlgString_UTF16(void* a1, short16 a2, void* a3, BrvVersion version);
BRV_EXPORT short16 BX_SelectExpressionDialog(void* a1, void* a2, void* a3, void* a4, BrvVersion version);
BRV_EXPORT short16 BX_IsCocoaBXDLG(void* a1, BrvVersion version);

// MIDI, instruments and playback
BRV_EXPORT short16 BX_SlotToInst(short16 a1, ushort16 a2, BrvVersion version);
BRV_EXPORT short16 BX_InstToSlot(short16 a1, ushort16 a2, BrvVersion version);
BRV_EXPORT HostResult BX_Playback(short16 a1, short16 a2, short16 a3, ushort16 a4, BrvVersion version);
BRV_EXPORT short16 BX_ListenToMidi(void* a1, void* a2, BrvVersion version);
BRV_EXPORT short16 BX_CopyMidi(void* a1, void* a2, void* a3, BrvVersion version);
BRV_EXPORT short16 BX_PasteMidi(void* a1, void* a2, int32 a3, BrvVersion version);
BRV_EXPORT short16 BX_NoteToMidi(void* a1, short16 a2, BrvVersion version);
BRV_EXPORT HostResult BX_MidiNoteToString(short16 a1, void* a2, short16 a3, short16 a4, BrvVersion version);
BRV_EXPORT HostResult BX_MidiNoteToString_UTF16(short16 a1, void* a2, short16 a3, short16 a4, BrvVersion version);
BRV_EXPORT short16 BX_StringToMidiNote(void* a1, BrvVersion version);
BRV_EXPORT short16 BX_StringToMidiNote_UTF16(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_DeleteMidiExpressions(short16 a1, short16 a2, BrvVersion version);
BRV_EXPORT HostResult BX_DeleteTempoRecords(short16 a1, BrvVersion version);
BRV_EXPORT int32 BX_ProcessMidiData(void* a1, BrvVersion version);  // default -1
BRV_EXPORT int32 BX_ProcessMidiDataNoSplit(void* a1, BrvVersion version);  // default -1
BRV_EXPORT short16 BX_QueryK2Slot(int32 a1, int32 a2, void* a3, void* a4, void* a5, int32 a6, BrvVersion version);
BRV_EXPORT short16 BX_QueryK2Slot_UTF16(int32 a1, int32 a2, void* a3, void* a4, void* a5, int32 a6, BrvVersion version);
BRV_EXPORT short16 BX_QueryOdelSlot(int32 a1, int32 a2, void* a3, void* a4, void* a5, void* a6, void* a7, void* a8, void* a9, void* a10, void* a11, void* a12, int32 a13, void* a14, int32 a15, void* a16, int32 a17, void* a18, int32 a19, BrvVersion version);
BRV_EXPORT short16 BX_QueryOdelSlot_2010(int32 a1, int32 a2, void* a3, void* a4, void* a5, void* a6, void* a7, void* a8, int32 a9, void* a10, int32 a11, void* a12, int32 a13, void* a14, int32 a15, BrvVersion version);
BRV_EXPORT short16 BX_QueryOdelSlot_2010_UTF16(int32 a1, int32 a2, void* a3, void* a4, void* a5, void* a6, void* a7, void* a8, int32 a9, void* a10, int32 a11, void* a12, int32 a13, void* a14, int32 a15, BrvVersion version);
BRV_EXPORT short16 BX_GetPlaybackSystem(BrvVersion version);  // default -1
BRV_EXPORT HostResult BX_SetPlaybackSystem(short16 a1, flag8 a2, BrvVersion version);
BRV_EXPORT short16 BX_GetPercMapRefData(ushort16 a1, void* a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT short16 BX_GetPercMapRefData_UTF16(ushort16 a1, void* a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT ushort16 BX_CreatePercMapRefData(void* a1, void* a2, BrvVersion version);
BRV_EXPORT ushort16 BX_CreatePercMapRefData_UTF16(void* a1, void* a2, BrvVersion version);

// Fonts
BRV_EXPORT short16 BX_FontNameToNum(void* a1, BrvVersion version);  // default -1
BRV_EXPORT short16 BX_FontNumToName(short16 a1, void* a2, BrvVersion version);
BRV_EXPORT short16 BX_FontNameToNum_UTF16(void* a1, BrvVersion version);  // default -1
BRV_EXPORT short16 BX_FontNumToName_UTF16(short16 a1, void* a2, short16 a3, BrvVersion version);
BRV_EXPORT short16 BX_FontDialog(void* a1, void* a2, void* a3, short16 a4, short16 a5, BrvVersion version);
BRV_EXPORT short16 BX_FontDialog_UTF16(void* a1, void* a2, void* a3, short16 a4, short16 a5, BrvVersion version);
BRV_EXPORT HostResult BX_SetDefaultMusicFont(short16 a1, short16 a2, ushort16 a3, BrvVersion version);
BRV_EXPORT HostResult BX_DoesFontExistOnSystem(void* a1, BrvVersion version);

// Text, syllables and names
BRV_EXPORT HostResult BX_GetSyllable(void* a1, int32 a2, int32 a3, void* a4, BrvVersion version);
BRV_EXPORT HostResult BX_GetSyllable_UTF16(void* a1, int32 a2, int32 a3, void* a4, BrvVersion version);
BRV_EXPORT short16 BX_SyllableInfo(int32 a1, short16 a2, short16 a3, void* a4, short16 a5, void* a6, void* a7, void* a8, void* a9, BrvVersion version);
BRV_EXPORT short16 BX_SyllableInfo_UTF16(int32 a1, short16 a2, short16 a3, void* a4, short16 a5, void* a6, void* a7, void* a8, void* a9, BrvVersion version);
BRV_EXPORT HostResult BX_ParseCaretCommand(void* a1, void* a2, int32 a3, void* a4, BrvVersion version);
BRV_EXPORT HostResult BX_ParseCaretCommand_UTF16(void* a1, void* a2, int32 a3, void* a4, BrvVersion version);
BRV_EXPORT int32 BX_GetTextEncoding(BrvVersion version);  // default -2
BRV_EXPORT short16 BX_AutoRehearsalInsert(short16 a1, short16 a2, short16 a3, void* a4, short16 a5, BrvVersion version);
BRV_EXPORT short16 BX_AutoRehearsalInsert_UTF16(short16 a1, short16 a2, short16 a3, void* a4, short16 a5, BrvVersion version);
BRV_EXPORT short16 BX_AutoNumberedName_UTF16(short16 a1, short16 a2, void* a3, short16 a4, flag8 a5, BrvVersion version);
BRV_EXPORT HostResult BX_GetMeasureNumberString(short16 a1, void* a2, short16 a3, flag8 a4, flag8 a5, BrvVersion version);

// Documents, windows and regions
BRV_EXPORT HostResult BX_ScrollTo(short16 a1, short16 a2, BrvVersion version);
BRV_EXPORT short16 BX_GetCurERegions(void* a1, void* a2, void* a3, BrvVersion version);
BRV_EXPORT HostResult BX_RedrawMusic(void* a1, BrvVersion version);
BRV_EXPORT short16 BX_GetKeySig(short16 a1, short16 a2, short16 a3, void* a4, BrvVersion version);
BRV_EXPORT HostResult BX_UpdateLayout(short16 a1, short16 a2, BrvVersion version);
BRV_EXPORT HostResult BX_GetMeasureDuration(short16 a1, short16 a2, BrvVersion version);
BRV_EXPORT short16 BX_GetShowLayer(short16 a1, BrvVersion version);
BRV_EXPORT HostResult BX_SetCurERegionMac(void* a1, BrvVersion version);
BRV_EXPORT short16 BX_SetCurrentNuvexaDocument(short16 a1, BrvVersion version);
BRV_EXPORT short16 BX_GetCurrentNuvexaDocument(BrvVersion version);
BRV_EXPORT short16 BX_GetNextNuvexaDocument(short16 a1, BrvVersion version);
BRV_EXPORT short16 BX_GetBrevixPathMac(int32 a1, void* a2, BrvVersion version);
BRV_EXPORT short16 BX_GetGraphicPathMac(void* a1, void* a2, void* a3, int32 a4, BrvVersion version);
BRV_EXPORT short16 BX_CreateGraphic(void* a1, short16 a2, int32 a3, void* a4, void* a5, int32 a6, BrvVersion version);
BRV_EXPORT short16 BX_GetDocumentPathMac(short16 a1, void* a2, BrvVersion version);
BRV_EXPORT HostResult BX_RebuildMenuSystem(ushort16 a1, BrvVersion version);
BRV_EXPORT short16 BX_EnableBusyDetection(short16 a1, BrvVersion version);
BRV_EXPORT short16 BX_ExecuteMenuItem(int32 a1, BrvVersion version);
BRV_EXPORT short16 BX_InsertMeasures(short16 a1, short16 a2, short16 a3, BrvVersion version);
BRV_EXPORT short16 BX_DeleteMeasures(short16 a1, short16 a2, short16 a3, BrvVersion version);
BRV_EXPORT short16 BX_NewNuvexaDocument(BrvVersion version);
BRV_EXPORT short16 BX_CloseNuvexaDocument(short16 a1, BrvVersion version);
BRV_EXPORT short16 BX_IsNuvexaDocumentDirty(short16 a1, BrvVersion version);
BRV_EXPORT HostResult BX_SetNuvexaDocumentDirty(short16 a1, short16 a2, BrvVersion version);
BRV_EXPORT short16 BX_OpenDocument(void* a1, short16 a2, short16 a3, short16 a4, short16 a5, short16 a6, BrvVersion version);
BRV_EXPORT short16 BX_CloseCurrentDocumentWindow(BrvVersion version);
BRV_EXPORT short16 BX_SaveDocument(void* a1, short16 a2, short16 a3, BrvVersion version);
BRV_EXPORT short16 BX_GetMaxLayers(BrvVersion version);  // default 4
BRV_EXPORT short16 BX_IsMachO(BrvVersion version);
BRV_EXPORT short16 BX_GetWindowCount(BrvVersion version);
BRV_EXPORT short16 BX_GetWindowInfoList(void* a1, short16 a2, BrvVersion version);
BRV_EXPORT short16 BX_GetCurrentWindowInfo(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_GetCurrentWindow(BrvVersion version);
BRV_EXPORT short16 BX_SetCurrentWindow(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_CopyCutMusic(void* a1, short16 a2, BrvVersion version);
BRV_EXPORT HostResult BX_InsertMergeMusic(int32 a1, void* a2, flag8 a3, BrvVersion version);
BRV_EXPORT HostResult BX_OpenHelpItem(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_OpenHelpItem_UTF16(void* a1, BrvVersion version);
BRV_EXPORT short16 BX_ExportSvgFromShape(ushort16 a1, void* a2, void* a3, int32 a4, BrvVersion version);

// Printing
BRV_EXPORT HostResult BX_GetPrintSettings(void* a1, BrvVersion version);
BRV_EXPORT short16 BX_PrintCurrentDocument(void* a1, BrvVersion version);
BRV_EXPORT short16 BX_PrintDocument(short16 a1, void* a2, BrvVersion version);
BRV_EXPORT HostResult BX_PrintDocuments(void* a1, short16 a2, void* a3, BrvVersion version);

// Parts
BRV_EXPORT short16 BX_GetCurrentPartID(BrvVersion version);  // default -1
BRV_EXPORT HostResult BX_SetCurrentPartID(short16 a1, BrvVersion version);
BRV_EXPORT HostResult BX_SetCurrentPartInView(short16 a1, BrvVersion version);
BRV_EXPORT short16 BX_GetNextPartID(short16 a1, BrvVersion version);  // default -1
BRV_EXPORT HostResult BX_GetPartName(short16 a1, BrvVersion version);
BRV_EXPORT HostResult BX_GetPartName_UTF16(short16 a1, BrvVersion version);
BRV_EXPORT int32 BX_CountParts(BrvVersion version);  // default -1
BRV_EXPORT HostResult BX_GetQVRParts(void* a1, BrvVersion version);

// Metrics
BRV_EXPORT short16 BX_GetEntryMetrics(short16 a1, short16 a2, int32 a3, void* a4, void* a5, short16 a6, BrvVersion version);
BRV_EXPORT short16 BX_GetTGFEntryMetrics(void* a1, void* a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT short16 BX_GetEntryMetrics2009a(short16 a1, short16 a2, int32 a3, void* a4, void* a5, short16 a6, BrvVersion version);
BRV_EXPORT short16 BX_GetTGFEntryMetrics2009a(void* a1, void* a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT short16 BX_GetEntryMetrics2014(short16 a1, short16 a2, int32 a3, void* a4, void* a5, short16 a6, BrvVersion version);
BRV_EXPORT short16 BX_GetTGFEntryMetrics2014(void* a1, void* a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT short16 BX_GetMeasureMetrics(short16 a1, short16 a2, void* a3, short16 a4, BrvVersion version);
BRV_EXPORT HostResult BX_FreeEntryMetrics(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_FreeMeasureMetrics(void* a1, BrvVersion version);
BRV_EXPORT HostResult BX_GetTextMetrics_UTF16(void* a1, void* a2, int32 a3, void* a4, int32 a5, BrvVersion version);

// File selection and alerts
BRV_EXPORT short16 BX_AlertMessage(void* a1, ushort16 a2, int32 a3, void* a4, BrvVersion version);
BRV_EXPORT short16 BX_AlertMessage_UTF16(void* a1, ushort16 a2, int32 a3, void* a4, BrvVersion version);
BRV_EXPORT HostResult BX_DisposeBrvClipFileToken(int32 a1, BrvVersion version);
BRV_EXPORT short16 BX_SelectFileToOpen(void* a1, int32 a2, BrvVersion version);
BRV_EXPORT short16 BX_SelectFileToSave(void* a1, int32 a2, BrvVersion version);
BRV_EXPORT short16 BX_SelectFolder(void* a1, void* a2, void* a3, BrvVersion version);

// Document records
BRV_EXPORT short16 BX_LoadEData(uint32 tag, EDataKey* key, void* data, std::int32_t* size, BrvVersion version);
BRV_EXPORT short16 BX_SaveEData(uint32 tag, EDataKey* key, void* data, uint32 size, BrvVersion version);
BRV_EXPORT short16 BX_CreateEData(uint32 tag, EDataKey* key, void* data, int32 size, BrvVersion version);
BRV_EXPORT short16 BX_DeleteEData(uint32 tag, EDataKey* key, BrvVersion version);
BRV_EXPORT short16 BX_PreviousEData(uint32 tag, EDataKey* key, void* data, int32 size, BrvVersion version);
BRV_EXPORT short16 BX_NextEData(uint32 tag, EDataKey* key, void* data, int32 size, BrvVersion version);

#ifdef __cplusplus
}
#endif
