// Every host function of the kit, one line a function, in the order of brevixpdk.h, which has their signatures. There
// is no include guard: whoever includes this defines the macros first, and gets what follows from the table. version,
// the last argument of every function, is left out.
//
//   HOST_CALL(name, default, arguments...)              passes the call on
//   HOST_CALL_AFTER(work, name, default, arguments...)  does some work of the kit's own first
//   HOST_CALL_IF(condition, otherwise, name, default)   returns otherwise, without looking the function up, unless the
//                                                       condition holds
//   HOST_CALL_OF_ITS_OWN(name, arguments...)            has a definition of its own
//
// default is what the function returns where the host lacks it.

// Frames and entries
HOST_CALL_AFTER(++LoadedTGFCounter, BX_LoadTGF, 0, regionScope, staff, measure, layer, loadFlag)
HOST_CALL_AFTER(CleanTGF(frame, true), BX_InsertEXENTRY, 0, frame, argument2, argument3)
HOST_CALL_AFTER(CleanTGF(frame, true), BX_DeleteEXENTRY, 0, frame, argument2, argument3)
HOST_CALL_AFTER(CleanTGF(frame, true), BX_SaveTGF, 0, frame)
HOST_CALL_AFTER(--LoadedTGFCounter, BX_FreeTGF, 0, frame)
HOST_CALL(BX_RebeamRegion, 0, argument1, argument2)
HOST_CALL(BX_RebarRegion, 0, argument1, argument2, argument3, argument4, argument5)
HOST_CALL(BX_NoteMover, 0, argument1, argument2, argument3, argument4, argument5)
HOST_CALL(BX_SelectNote, 0, argument1, argument2)
HOST_CALL(BX_GetTGFDuration, 0, argument1)
HOST_CALL_AFTER(CleanTGF(frame, true), BX_ReduceEntries, 0, frame)
HOST_CALL(BX_MassMoverMac, 0, argument1, argument2)
HOST_CALL(BX_AnalyzeChord, 0, argument1, argument2, argument3)
HOST_CALL(BX_CheckBrv2012Accidentals, 0)

// Edit brackets and progress
HOST_CALL_AFTER(++MassEditDepth, BX_StartMassEdit, 0, argument1, count)
HOST_CALL_AFTER(--MassEditDepth, BX_EndMassEdit, 0, massEdit, cancelled)
HOST_CALL(BX_MassEditProgress, 0, massEdit, increment, argument3, argument4, argument5)
HOST_CALL_AFTER(++BrevixEditDepth, BX_StartBrevixEdit, 0, argument1)
HOST_CALL_AFTER(++BrevixEditDepth, BX_StartBrevixEdit_UTF16, 0, argument1)
HOST_CALL_IF(LeaveEdit(), 1, BX_EndBrevixEdit, 0)
HOST_CALL_IF(LeaveEdit(), 0, BX_CancelBrevixEdit, 0)

// Dialogs and dialog items
HOST_CALL(BX_Dialog, 0, argument1, argument2, argument3, argument4, argument5)
HOST_CALL(BX_EndDialog, 0, argument1)
HOST_CALL(BX_EnableDlgItem, 0, argument1, argument2, argument3)
HOST_CALL(BX_ShowHideDlgItem, 0, argument1, argument2, argument3)
HOST_CALL(BX_SetDlgFocus, 0, argument1, argument2)
HOST_CALL(BX_GetDlgCntlVal, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_SetDlgCntlVal, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetDlgCntlVal_UTF16, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_SetDlgCntlVal_UTF16, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetDlgCntl, 0, argument1, argument2)
HOST_CALL(BX_SetTimer, 0, argument1, argument2, argument3)
HOST_CALL(BX_KillTimer, 0, argument1, argument2)
HOST_CALL(BX_GetDlgItemUser, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_SetDlgItemUser, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_SymbolDialog, 0, argument1, argument2, argument3)
HOST_CALL(BX_SymbolDialog_UTF32, 0, argument1, argument2, argument3)
HOST_CALL(BX_SelectionDialog, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetDlgItemVal, 0, argument1, argument2, argument3)
HOST_CALL(BX_SetDlgItemVal, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetDlgString, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetDlgString_UTF16, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_SetDlgString, 0, argument1, argument2, argument3)
HOST_CALL(BX_SetDlgString_UTF16, 0, argument1, argument2, argument3)
HOST_CALL(BX_SelectExpressionDialog, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_IsCocoaBXDLG, 0, argument1)

// MIDI, instruments and playback
HOST_CALL(BX_SlotToInst, 0, slot, id)
HOST_CALL(BX_InstToSlot, 0, argument1, argument2)
HOST_CALL(BX_Playback, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_ListenToMidi, 0, argument1, argument2)
HOST_CALL(BX_CopyMidi, 0, argument1, argument2, argument3)
HOST_CALL(BX_PasteMidi, 0, argument1, argument2, argument3)
HOST_CALL(BX_NoteToMidi, 0, argument1, argument2)
HOST_CALL(BX_MidiNoteToString, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_MidiNoteToString_UTF16, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_StringToMidiNote, 0, argument1)
HOST_CALL(BX_StringToMidiNote_UTF16, 0, argument1)
HOST_CALL(BX_DeleteMidiExpressions, 0, argument1, argument2)
HOST_CALL(BX_DeleteTempoRecords, 0, argument1)
HOST_CALL(BX_ProcessMidiData, -1, argument1)
HOST_CALL(BX_ProcessMidiDataNoSplit, -1, argument1)
HOST_CALL(BX_QueryK2Slot, 0, argument1, argument2, argument3, argument4, argument5, argument6)
HOST_CALL(BX_QueryK2Slot_UTF16, 0, argument1, argument2, argument3, argument4, argument5, argument6)
HOST_CALL(BX_QueryOdelSlot, 0, argument1, argument2, argument3, argument4, argument5, argument6, argument7, argument8,
          argument9, argument10, argument11, argument12, argument13, argument14, argument15, argument16, argument17,
          argument18, argument19)
HOST_CALL(BX_QueryOdelSlot_2010, 0, argument1, argument2, argument3, argument4, argument5, argument6, argument7,
          argument8, argument9, argument10, argument11, argument12, argument13, argument14, argument15)
HOST_CALL(BX_QueryOdelSlot_2010_UTF16, 0, argument1, argument2, argument3, argument4, argument5, argument6, argument7,
          argument8, argument9, argument10, argument11, argument12, argument13, argument14, argument15)
HOST_CALL(BX_GetPlaybackSystem, -1)
HOST_CALL(BX_SetPlaybackSystem, 0, argument1, argument2)
HOST_CALL(BX_GetPercMapRefData, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetPercMapRefData_UTF16, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_CreatePercMapRefData, 0, argument1, argument2)
HOST_CALL(BX_CreatePercMapRefData_UTF16, 0, argument1, argument2)

// Fonts
HOST_CALL(BX_FontNameToNum, -1, argument1)
HOST_CALL(BX_FontNumToName, 0, argument1, argument2)
HOST_CALL(BX_FontNameToNum_UTF16, -1, argument1)
HOST_CALL(BX_FontNumToName_UTF16, 0, argument1, argument2, argument3)
HOST_CALL(BX_FontDialog, 0, argument1, argument2, argument3, argument4, argument5)
HOST_CALL(BX_FontDialog_UTF16, 0, argument1, argument2, argument3, argument4, argument5)
HOST_CALL(BX_SetDefaultMusicFont, 0, argument1, argument2, argument3)
HOST_CALL(BX_DoesFontExistOnSystem, 0, argument1)

// Text, syllables and names
HOST_CALL(BX_GetSyllable, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetSyllable_UTF16, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_SyllableInfo, 0, argument1, argument2, argument3, argument4, argument5, argument6, argument7, argument8,
          argument9)
HOST_CALL(BX_SyllableInfo_UTF16, 0, argument1, argument2, argument3, argument4, argument5, argument6, argument7,
          argument8, argument9)
HOST_CALL(BX_ParseCaretCommand, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_ParseCaretCommand_UTF16, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetTextEncoding, -2)
HOST_CALL(BX_AutoRehearsalInsert, 0, argument1, argument2, argument3, argument4, argument5)
HOST_CALL(BX_AutoRehearsalInsert_UTF16, 0, argument1, argument2, argument3, argument4, argument5)
HOST_CALL(BX_AutoNumberedName_UTF16, 0, argument1, argument2, argument3, argument4, argument5)
HOST_CALL(BX_GetMeasureNumberString, 0, argument1, argument2, argument3, argument4, argument5)

// Documents, windows and regions
HOST_CALL(BX_ScrollTo, 0, argument1, argument2)
HOST_CALL(BX_GetCurERegions, 0, argument1, second, first)
HOST_CALL(BX_RedrawMusic, 0, argument1)
HOST_CALL(BX_GetKeySig, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_UpdateLayout, 0, argument1, argument2)
HOST_CALL(BX_GetMeasureDuration, 0, argument1, argument2)
HOST_CALL(BX_GetShowLayer, 0, layer)
HOST_CALL(BX_SetCurERegionMac, 0, argument1)
HOST_CALL(BX_SetCurrentNuvexaDocument, 0, argument1)
HOST_CALL(BX_GetCurrentNuvexaDocument, 0)
HOST_CALL(BX_GetNextNuvexaDocument, 0, argument1)
HOST_CALL(BX_GetBrevixPathMac, 0, argument1, argument2)
HOST_CALL(BX_GetGraphicPathMac, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_CreateGraphic, 0, argument1, argument2, argument3, argument4, argument5, argument6)
HOST_CALL(BX_GetDocumentPathMac, 0, argument1, argument2)
HOST_CALL(BX_RebuildMenuSystem, 0, argument1)
HOST_CALL(BX_EnableBusyDetection, 0, argument1)
HOST_CALL(BX_ExecuteMenuItem, 0, argument1)
HOST_CALL(BX_InsertMeasures, 0, argument1, argument2, argument3)
HOST_CALL(BX_DeleteMeasures, 0, argument1, argument2, argument3)
HOST_CALL(BX_NewNuvexaDocument, 0)
HOST_CALL(BX_CloseNuvexaDocument, 0, argument1)
HOST_CALL(BX_IsNuvexaDocumentDirty, 0, argument1)
HOST_CALL(BX_SetNuvexaDocumentDirty, 0, argument1, argument2)
HOST_CALL(BX_OpenDocument, 0, argument1, argument2, argument3, argument4, argument5, argument6)
HOST_CALL(BX_CloseCurrentDocumentWindow, 0)
HOST_CALL(BX_SaveDocument, 0, argument1, argument2, argument3)
HOST_CALL(BX_GetMaxLayers, 4)
HOST_CALL(BX_IsMachO, 0)
HOST_CALL(BX_GetWindowCount, 0)
HOST_CALL(BX_GetWindowInfoList, 0, argument1, argument2)
HOST_CALL(BX_GetCurrentWindowInfo, 0, argument1)
HOST_CALL(BX_GetCurrentWindow, 0)
HOST_CALL(BX_SetCurrentWindow, 0, argument1)
HOST_CALL(BX_CopyCutMusic, 0, argument1, argument2)
HOST_CALL(BX_InsertMergeMusic, 0, argument1, argument2, argument3)
HOST_CALL(BX_OpenHelpItem, 0, argument1)
HOST_CALL(BX_OpenHelpItem_UTF16, 0, argument1)
HOST_CALL(BX_ExportSvgFromShape, 0, argument1, argument2, argument3, argument4)

// Printing
HOST_CALL(BX_GetPrintSettings, 0, argument1)
HOST_CALL(BX_PrintCurrentDocument, 0, argument1)
HOST_CALL(BX_PrintDocument, 0, argument1, argument2)
HOST_CALL(BX_PrintDocuments, 0, argument1, argument2, argument3)

// Parts
HOST_CALL(BX_GetCurrentPartID, -1)
HOST_CALL(BX_SetCurrentPartID, 0, argument1)
HOST_CALL(BX_SetCurrentPartInView, 0, argument1)
HOST_CALL(BX_GetNextPartID, -1, argument1)
HOST_CALL(BX_GetPartName, 0, argument1)
HOST_CALL(BX_GetPartName_UTF16, 0, argument1)
HOST_CALL(BX_CountParts, -1)
HOST_CALL(BX_GetQVRParts, 0, argument1)

// Metrics
HOST_CALL(BX_GetEntryMetrics, 0, argument1, argument2, argument3, argument4, argument5, argument6)
HOST_CALL(BX_GetTGFEntryMetrics, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetEntryMetrics2009a, 0, argument1, argument2, argument3, argument4, argument5, argument6)
HOST_CALL(BX_GetTGFEntryMetrics2009a, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetEntryMetrics2014, 0, argument1, argument2, argument3, argument4, argument5, argument6)
HOST_CALL(BX_GetTGFEntryMetrics2014, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_GetMeasureMetrics, 0, argument1, argument2, argument3, argument4)
HOST_CALL(BX_FreeEntryMetrics, 0, argument1)
HOST_CALL(BX_FreeMeasureMetrics, 0, argument1)
HOST_CALL(BX_GetTextMetrics_UTF16, 0, argument1, argument2, argument3, argument4, argument5)

// File selection and alerts
HOST_CALL(BX_AlertMessage, 0, parent, alertKind, stringID, text)
HOST_CALL(BX_AlertMessage_UTF16, 0, parent, alertKind, stringID, text)
HOST_CALL(BX_DisposeBrvClipFileToken, 0, argument1)
HOST_CALL(BX_SelectFileToOpen, 0, argument1, argument2)
HOST_CALL(BX_SelectFileToSave, 0, argument1, argument2)
HOST_CALL(BX_SelectFolder, 0, argument1, argument2, argument3)

// Document records. BX_LoadEData and BX_SaveEData do more than pass a call on.
HOST_CALL_OF_ITS_OWN(BX_LoadEData, tag, key, data, size)
HOST_CALL_OF_ITS_OWN(BX_SaveEData, tag, key, data, size)
HOST_CALL(BX_CreateEData, 0, tag, key, data, argument4)
HOST_CALL(BX_DeleteEData, 0, tag, key)
HOST_CALL(BX_PreviousEData, 0, tag, key, data, argument4)
HOST_CALL(BX_NextEData, 0, tag, key, data, argument4)
