// The chief header of BrvEDK: every service of the host that an extension can call.
//
// Each function below is the kit's; it looks up the host's function of the same name when it is first called, keeps it
// for the life of the process, and passes the call on. The contract that all of them share:
//
// - The host's bundle must be bound before the first call; the host does it by way of the extension's main
//   (hostbundle.h). A function that was called earlier stays without its host function for good.
// - Where the host has no such function nothing is called, and the result is the default that the comment names:
//   [default 0] is 0, null or no. Nothing else is ever reported by the kit.
// - version is kBrvVersion, the version of the interface that the extension was built for. It goes to the host as
//   it is.
// - 16-bit and 8-bit arguments are cut to their class and extended, whatever stands in their upper bits; 16-bit results
//   come back extended (hosttypes.h). A 16-bit result is non-zero for success or yes unless the comment says otherwise.
// - All calls are made on the host's main thread. [main-thread]
// - What a pointer points to stays the property of the side that made it, unless the comment says otherwise.
//
// Where a comment says that arguments are passed through, their meaning is between the extension and its host: the kit
// looks at none of them.
#pragma once

#include <cstdint>

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// Counters and flags of the kit, open to the extension. The kit reads none of the counters but BrevixEditDepth.

BRV_EXPORT extern std::int32_t LoadedTGFCounter;  // calls of BX_LoadTGF less calls of BX_FreeTGF
BRV_EXPORT extern std::int32_t MassEditDepth;  // mass edits started and not ended; below 0 after an end without a start
BRV_EXPORT extern std::int32_t BrevixEditDepth;  // edits started and neither ended nor cancelled; never below 0

// Whether a rest gets a placeholder note when its frame goes back to the host: 1 at first, 0 for no.
BRV_EXPORT extern std::uint8_t CanAddNoteRecordToRests;

// Writes a line to the console, formatted as printf does it, for debugging. Output beyond 4095 characters is cut.
//
// Example:
//   DbgPrintF("measure %d has %d entries", measure, frame->entryCount);
BRV_EXPORT void DbgPrintF(const char* format, ...) __attribute__((format(printf, 1, 2)));

// Frames and entries -------------------------------------------------------------------------------------------------

// Loads the frame of one staff, measure and layer: the entries that stand there. regionScope is that of the region that
// is worked on (EREGION::regionScope); staves and measures count from 1, layers from 0; loadFlag is 1.
//
// Returns the frame, or null if there is none, as in an empty measure. The frame belongs to the host: hand it back with
// BX_FreeTGF, whether or not it was saved, before the next one is loaded. LoadedTGFCounter goes up at every call,
// whatever comes back.
//
// Example:
//   if (EXTGF2005a* frame = BX_LoadTGF(region->regionScope, staff, measure, layer, 1, kBrvVersion)) {
//     // change frame->entries in place
//     BX_SaveTGF(frame, kBrvVersion);
//     BX_FreeTGF(frame, kBrvVersion);
//   }
// [default 0]
BRV_EXPORT EXTGF2005a* BX_LoadTGF(ushort16 regionScope, short16 staff, short16 measure, short16 layer, short16 loadFlag,
                                  BrvVersion version);

// Inserts an entry into a loaded frame; the host reads the two numbers. The frame is cleaned first, as in BX_SaveTGF.
// Returns non-zero for success. [default 0]
BRV_EXPORT short16 BX_InsertEXENTRY(EXTGF2005a* frame, short16 argument2, short16 argument3, BrvVersion version);

// Deletes an entry of a loaded frame; the host reads the two numbers. The frame is cleaned first, as in BX_SaveTGF.
// Returns non-zero for success. [default 0]
BRV_EXPORT short16 BX_DeleteEXENTRY(EXTGF2005a* frame, short16 argument2, short16 argument3, BrvVersion version);

// Writes a loaded frame back to the document. Returns non-zero for success.
//
// The frame is cleaned first, also where the host lacks the function, and so the caller's entries change: notes that
// have no identifier, or that of another note of their entry, get the next number after the greatest, unused note slots
// are zeroed, and a rest gets one placeholder note unless CanAddNoteRecordToRests is 0. Identifiers are then unique in
// their entry as long as numbers are left: those from 0x8000 up count as negative, and a number that is given beyond
// 0x7FFF may be one that a note before it has. The frame still has to be freed, and is not saved once it was.
// [default 0]
BRV_EXPORT short16 BX_SaveTGF(EXTGF2005a* frame, BrvVersion version);

// Releases a frame that BX_LoadTGF gave. LoadedTGFCounter goes down at every call. Returns what the host returns.
// [default 0]
BRV_EXPORT HostResult BX_FreeTGF(EXTGF2005a* frame, BrvVersion version);

// Beams a region anew. Passes both pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_RebeamRegion(void* argument1, void* argument2, BrvVersion version);

// Divides a region into measures anew. Passes its arguments through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_RebarRegion(void* argument1, ushort16 argument2, short16 argument3, short16 argument4,
                                  short16 argument5, BrvVersion version);

// Passes two pointers and three signed 16-bit numbers through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_NoteMover(void* argument1, void* argument2, short16 argument3, short16 argument4,
                                   short16 argument5, BrvVersion version);

// Passes a pointer and a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SelectNote(void* argument1, short16 argument2, BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetTGFDuration(void* argument1, BrvVersion version);

// Passes a loaded frame through. It is cleaned first, as in BX_SaveTGF. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_ReduceEntries(EXTGF2005a* frame, BrvVersion version);

// Passes two pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_MassMoverMac(void* argument1, void* argument2, BrvVersion version);

// Passes three pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_AnalyzeChord(void* argument1, void* argument2, void* argument3, BrvVersion version);

// Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_CheckBrv2012Accidentals(BrvVersion version);

// Edit brackets and progress -----------------------------------------------------------------------------------------

// Opens the host's display of progress for a job of count units. argument1 is null. Returns the handle of the display,
// or null if it did not open; every handle is ended once with BX_EndMassEdit. MassEditDepth goes up at every call.
// [default 0]
BRV_EXPORT void* BX_StartMassEdit(void* argument1, int32 count, BrvVersion version);

// Closes a display of progress; cancelled is 1 if the job was broken off. MassEditDepth goes down at every call, below
// 0 too. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_EndMassEdit(void* massEdit, short16 cancelled, BrvVersion version);

// Tells the host how many units were done since the last report: an increment, never a total. The last three numbers
// are 0, 0, -1. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_MassEditProgress(void* massEdit, short16 increment, short16 argument3, short16 argument4,
                                       short16 argument5, BrvVersion version);

// Opens an edit of the document. Passes the pointer through. BrevixEditDepth goes up at every call. Returns what the
// host returns. [default 0]
BRV_EXPORT HostResult BX_StartBrevixEdit(void* argument1, BrvVersion version);

// The same as BX_StartBrevixEdit, for UTF-16 text. [default 0]
BRV_EXPORT HostResult BX_StartBrevixEdit_UTF16(void* argument1, BrvVersion version);

// Ends the innermost edit. Without an open edit returns 1 and does not call the host; else BrevixEditDepth goes down by
// one, and the host's 16-bit result is returned. [default 0]
BRV_EXPORT short16 BX_EndBrevixEdit(BrvVersion version);

// Cancels the innermost edit. Without an open edit does nothing and does not call the host; else BrevixEditDepth goes
// down by one.
BRV_EXPORT void BX_CancelBrevixEdit(BrvVersion version);

// Dialogs and dialog items -------------------------------------------------------------------------------------------

// Passes a signed 16-bit number, two pointers, a signed 16-bit number and a pointer through. Returns what the host
// returns. [default 0]
BRV_EXPORT HostResult BX_Dialog(short16 argument1, void* argument2, void* argument3, short16 argument4, void* argument5,
                                BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_EndDialog(void* argument1, BrvVersion version);

// Passes a pointer and two signed 16-bit numbers through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_EnableDlgItem(void* argument1, short16 argument2, short16 argument3, BrvVersion version);

// Passes a pointer and two signed 16-bit numbers through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_ShowHideDlgItem(void* argument1, short16 argument2, short16 argument3, BrvVersion version);

// Passes a pointer and a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetDlgFocus(void* argument1, short16 argument2, BrvVersion version);

// Passes a pointer, a signed 16-bit number, a pointer and a signed 16-bit number through. Returns what the host
// returns. [default 0]
BRV_EXPORT HostResult BX_GetDlgCntlVal(void* argument1, short16 argument2, void* argument3, short16 argument4,
                                       BrvVersion version);

// Passes a pointer, a signed 16-bit number, a pointer and a 32-bit number through. Returns what the host returns.
// [default 0]
BRV_EXPORT HostResult BX_SetDlgCntlVal(void* argument1, short16 argument2, void* argument3, int32 argument4,
                                       BrvVersion version);

// Passes a pointer, a signed 16-bit number, a pointer and a signed 16-bit number through. Returns what the host
// returns. [default 0]
BRV_EXPORT HostResult BX_GetDlgCntlVal_UTF16(void* argument1, short16 argument2, void* argument3, short16 argument4,
                                             BrvVersion version);

// Passes a pointer, a signed 16-bit number, a pointer and a 32-bit number through. Returns what the host returns.
// [default 0]
BRV_EXPORT HostResult BX_SetDlgCntlVal_UTF16(void* argument1, short16 argument2, void* argument3, int32 argument4,
                                             BrvVersion version);

// Passes a pointer and a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetDlgCntl(void* argument1, short16 argument2, BrvVersion version);

// Passes a pointer, a signed 16-bit number and a 32-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetTimer(void* argument1, short16 argument2, int32 argument3, BrvVersion version);

// Passes a pointer and a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_KillTimer(void* argument1, short16 argument2, BrvVersion version);

// Passes a pointer, two signed 16-bit numbers and a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetDlgItemUser(void* argument1, short16 argument2, short16 argument3, void* argument4,
                                        BrvVersion version);

// Passes a pointer, two signed 16-bit numbers and a 32-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetDlgItemUser(void* argument1, short16 argument2, short16 argument3, int32 argument4,
                                        BrvVersion version);

// Passes three pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SymbolDialog(void* argument1, void* argument2, void* argument3, BrvVersion version);

// Passes three pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SymbolDialog_UTF32(void* argument1, void* argument2, void* argument3, BrvVersion version);

// Passes a pointer, a signed 16-bit number and two pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SelectionDialog(void* argument1, short16 argument2, void* argument3, void* argument4,
                                      BrvVersion version);

// Passes a pointer and two signed 16-bit numbers through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetDlgItemVal(void* argument1, short16 argument2, short16 argument3, BrvVersion version);

// Passes a pointer, two signed 16-bit numbers and a 32-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetDlgItemVal(void* argument1, short16 argument2, short16 argument3, int32 argument4,
                                       BrvVersion version);

// Passes a pointer, a signed 16-bit number, a pointer and a signed 16-bit number through. Returns what the host
// returns. [default 0]
BRV_EXPORT HostResult BX_GetDlgString(void* argument1, short16 argument2, void* argument3, short16 argument4,
                                      BrvVersion version);

// Passes a pointer, a signed 16-bit number, a pointer and a signed 16-bit number through. Returns what the host
// returns. [default 0]
BRV_EXPORT HostResult BX_GetDlgString_UTF16(void* argument1, short16 argument2, void* argument3, short16 argument4,
                                            BrvVersion version);

// Passes a pointer, a signed 16-bit number and a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetDlgString(void* argument1, short16 argument2, void* argument3, BrvVersion version);

// Passes a pointer, a signed 16-bit number and a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetDlgString_UTF16(void* argument1, short16 argument2, void* argument3, BrvVersion version);

// Passes four pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SelectExpressionDialog(void* argument1, void* argument2, void* argument3, void* argument4,
                                             BrvVersion version);

// Passes a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_IsCocoaBXDLG(void* argument1, BrvVersion version);

// MIDI, instruments and playback -------------------------------------------------------------------------------------

// The instrument of a slot; slots count from 1, and 0 says that there is no such slot. id is the host's. [default 0]
BRV_EXPORT short16 BX_SlotToInst(short16 slot, ushort16 id, BrvVersion version);

// Passes a signed 16-bit number and an unsigned 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_InstToSlot(short16 argument1, ushort16 argument2, BrvVersion version);

// Passes three signed 16-bit numbers and an unsigned 16-bit number through. Returns what the host returns.
// [default 0]
BRV_EXPORT HostResult BX_Playback(short16 argument1, short16 argument2, short16 argument3, ushort16 argument4,
                                  BrvVersion version);

// Passes two pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_ListenToMidi(void* argument1, void* argument2, BrvVersion version);

// Passes three pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_CopyMidi(void* argument1, void* argument2, void* argument3, BrvVersion version);

// Passes two pointers and a 32-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_PasteMidi(void* argument1, void* argument2, int32 argument3, BrvVersion version);

// Passes a pointer and a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_NoteToMidi(void* argument1, short16 argument2, BrvVersion version);

// Passes a signed 16-bit number, a pointer and two signed 16-bit numbers through. Returns what the host returns.
// [default 0]
BRV_EXPORT HostResult BX_MidiNoteToString(short16 argument1, void* argument2, short16 argument3, short16 argument4,
                                          BrvVersion version);

// Passes a signed 16-bit number, a pointer and two signed 16-bit numbers through. Returns what the host returns.
// [default 0]
BRV_EXPORT HostResult BX_MidiNoteToString_UTF16(short16 argument1, void* argument2, short16 argument3,
                                                short16 argument4, BrvVersion version);

// Passes a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_StringToMidiNote(void* argument1, BrvVersion version);

// Passes a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_StringToMidiNote_UTF16(void* argument1, BrvVersion version);

// Passes two signed 16-bit numbers through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_DeleteMidiExpressions(short16 argument1, short16 argument2, BrvVersion version);

// Passes a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_DeleteTempoRecords(short16 argument1, BrvVersion version);

// Passes a pointer through. Returns the host's 32-bit result. [default -1]
BRV_EXPORT int32 BX_ProcessMidiData(void* argument1, BrvVersion version);

// Passes a pointer through. Returns the host's 32-bit result. [default -1]
BRV_EXPORT int32 BX_ProcessMidiDataNoSplit(void* argument1, BrvVersion version);

// Passes two 32-bit numbers, three pointers and a 32-bit number through. Returns the host's 16-bit result.
// [default 0]
BRV_EXPORT short16 BX_QueryK2Slot(int32 argument1, int32 argument2, void* argument3, void* argument4, void* argument5,
                                  int32 argument6, BrvVersion version);

// Passes two 32-bit numbers, three pointers and a 32-bit number through. Returns the host's 16-bit result.
// [default 0]
BRV_EXPORT short16 BX_QueryK2Slot_UTF16(int32 argument1, int32 argument2, void* argument3, void* argument4,
                                        void* argument5, int32 argument6, BrvVersion version);

// Passes two 32-bit numbers, ten pointers, a 32-bit number, a pointer, a 32-bit number, a pointer, a 32-bit
// number, a pointer and a 32-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_QueryOdelSlot(int32 argument1, int32 argument2, void* argument3, void* argument4, void* argument5,
                                    void* argument6, void* argument7, void* argument8, void* argument9,
                                    void* argument10, void* argument11, void* argument12, int32 argument13,
                                    void* argument14, int32 argument15, void* argument16, int32 argument17,
                                    void* argument18, int32 argument19, BrvVersion version);

// Passes two 32-bit numbers, six pointers, a 32-bit number, a pointer, a 32-bit number, a pointer, a 32-bit
// number, a pointer and a 32-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_QueryOdelSlot_2010(int32 argument1, int32 argument2, void* argument3, void* argument4,
                                         void* argument5, void* argument6, void* argument7, void* argument8,
                                         int32 argument9, void* argument10, int32 argument11, void* argument12,
                                         int32 argument13, void* argument14, int32 argument15, BrvVersion version);

// Passes two 32-bit numbers, six pointers, a 32-bit number, a pointer, a 32-bit number, a pointer, a 32-bit
// number, a pointer and a 32-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_QueryOdelSlot_2010_UTF16(int32 argument1, int32 argument2, void* argument3, void* argument4,
                                               void* argument5, void* argument6, void* argument7, void* argument8,
                                               int32 argument9, void* argument10, int32 argument11, void* argument12,
                                               int32 argument13, void* argument14, int32 argument15,
                                               BrvVersion version);

// Returns the host's 16-bit result. [default -1]
BRV_EXPORT short16 BX_GetPlaybackSystem(BrvVersion version);

// Passes a signed 16-bit number and an 8-bit flag through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetPlaybackSystem(short16 argument1, flag8 argument2, BrvVersion version);

// Passes an unsigned 16-bit number, two pointers and a signed 16-bit number through. Returns the host's 16-bit
// result. [default 0]
BRV_EXPORT short16 BX_GetPercMapRefData(ushort16 argument1, void* argument2, void* argument3, short16 argument4,
                                        BrvVersion version);

// Passes an unsigned 16-bit number, two pointers and a signed 16-bit number through. Returns the host's 16-bit
// result. [default 0]
BRV_EXPORT short16 BX_GetPercMapRefData_UTF16(ushort16 argument1, void* argument2, void* argument3, short16 argument4,
                                              BrvVersion version);

// Passes two pointers through. Returns the host's unsigned 16-bit result. [default 0]
BRV_EXPORT ushort16 BX_CreatePercMapRefData(void* argument1, void* argument2, BrvVersion version);

// Passes two pointers through. Returns the host's unsigned 16-bit result. [default 0]
BRV_EXPORT ushort16 BX_CreatePercMapRefData_UTF16(void* argument1, void* argument2, BrvVersion version);

// Fonts --------------------------------------------------------------------------------------------------------------

// Passes a pointer through. Returns the host's 16-bit result. [default -1]
BRV_EXPORT short16 BX_FontNameToNum(void* argument1, BrvVersion version);

// Passes a signed 16-bit number and a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_FontNumToName(short16 argument1, void* argument2, BrvVersion version);

// Passes a pointer through. Returns the host's 16-bit result. [default -1]
BRV_EXPORT short16 BX_FontNameToNum_UTF16(void* argument1, BrvVersion version);

// Passes a signed 16-bit number, a pointer and a signed 16-bit number through. Returns the host's 16-bit result.
// [default 0]
BRV_EXPORT short16 BX_FontNumToName_UTF16(short16 argument1, void* argument2, short16 argument3, BrvVersion version);

// Passes three pointers and two signed 16-bit numbers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_FontDialog(void* argument1, void* argument2, void* argument3, short16 argument4,
                                 short16 argument5, BrvVersion version);

// Passes three pointers and two signed 16-bit numbers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_FontDialog_UTF16(void* argument1, void* argument2, void* argument3, short16 argument4,
                                       short16 argument5, BrvVersion version);

// Passes two signed 16-bit numbers and an unsigned 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetDefaultMusicFont(short16 argument1, short16 argument2, ushort16 argument3,
                                             BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_DoesFontExistOnSystem(void* argument1, BrvVersion version);

// Text, syllables and names ------------------------------------------------------------------------------------------

// Passes a pointer, two 32-bit numbers and a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetSyllable(void* argument1, int32 argument2, int32 argument3, void* argument4,
                                     BrvVersion version);

// Passes a pointer, two 32-bit numbers and a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetSyllable_UTF16(void* argument1, int32 argument2, int32 argument3, void* argument4,
                                           BrvVersion version);

// Passes a 32-bit number, two signed 16-bit numbers, a pointer, a signed 16-bit number and four pointers through.
// Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SyllableInfo(int32 argument1, short16 argument2, short16 argument3, void* argument4,
                                   short16 argument5, void* argument6, void* argument7, void* argument8,
                                   void* argument9, BrvVersion version);

// Passes a 32-bit number, two signed 16-bit numbers, a pointer, a signed 16-bit number and four pointers through.
// Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SyllableInfo_UTF16(int32 argument1, short16 argument2, short16 argument3, void* argument4,
                                         short16 argument5, void* argument6, void* argument7, void* argument8,
                                         void* argument9, BrvVersion version);

// Passes two pointers, a 32-bit number and a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_ParseCaretCommand(void* argument1, void* argument2, int32 argument3, void* argument4,
                                           BrvVersion version);

// Passes two pointers, a 32-bit number and a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_ParseCaretCommand_UTF16(void* argument1, void* argument2, int32 argument3, void* argument4,
                                                 BrvVersion version);

// Returns the host's 32-bit result. [default -2]
BRV_EXPORT int32 BX_GetTextEncoding(BrvVersion version);

// Passes three signed 16-bit numbers, a pointer and a signed 16-bit number through. Returns the host's 16-bit
// result. [default 0]
BRV_EXPORT short16 BX_AutoRehearsalInsert(short16 argument1, short16 argument2, short16 argument3, void* argument4,
                                          short16 argument5, BrvVersion version);

// Passes three signed 16-bit numbers, a pointer and a signed 16-bit number through. Returns the host's 16-bit
// result. [default 0]
BRV_EXPORT short16 BX_AutoRehearsalInsert_UTF16(short16 argument1, short16 argument2, short16 argument3,
                                                void* argument4, short16 argument5, BrvVersion version);

// Passes two signed 16-bit numbers, a pointer, a signed 16-bit number and an 8-bit flag through. Returns the
// host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_AutoNumberedName_UTF16(short16 argument1, short16 argument2, void* argument3, short16 argument4,
                                             flag8 argument5, BrvVersion version);

// Passes a signed 16-bit number, a pointer, a signed 16-bit number and two 8-bit flags through. Returns what the
// host returns. [default 0]
BRV_EXPORT HostResult BX_GetMeasureNumberString(short16 argument1, void* argument2, short16 argument3, flag8 argument4,
                                                flag8 argument5, BrvVersion version);

// Documents, windows and regions -------------------------------------------------------------------------------------

// Passes two signed 16-bit numbers through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_ScrollTo(short16 argument1, short16 argument2, BrvVersion version);

// Asks for the current selection: the host fills the three records. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetCurERegions(EREGION* argument1, EREGION* second, EREGION* first, BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_RedrawMusic(void* argument1, BrvVersion version);

// Passes three signed 16-bit numbers and a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetKeySig(short16 argument1, short16 argument2, short16 argument3, void* argument4,
                                BrvVersion version);

// Passes two signed 16-bit numbers through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_UpdateLayout(short16 argument1, short16 argument2, BrvVersion version);

// Passes two signed 16-bit numbers through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetMeasureDuration(short16 argument1, short16 argument2, BrvVersion version);

// Whether a layer is shown: non-zero if it is. Layers count from 0. [default 0]
BRV_EXPORT short16 BX_GetShowLayer(short16 layer, BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetCurERegionMac(void* argument1, BrvVersion version);

// Passes a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SetCurrentNuvexaDocument(short16 argument1, BrvVersion version);

// Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetCurrentNuvexaDocument(BrvVersion version);

// Passes a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetNextNuvexaDocument(short16 argument1, BrvVersion version);

// Passes a 32-bit number and a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetBrevixPathMac(int32 argument1, void* argument2, BrvVersion version);

// Passes three pointers and a 32-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetGraphicPathMac(void* argument1, void* argument2, void* argument3, int32 argument4,
                                        BrvVersion version);

// Passes a pointer, a signed 16-bit number, a 32-bit number, two pointers and a 32-bit number through. Returns the
// host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_CreateGraphic(void* argument1, short16 argument2, int32 argument3, void* argument4,
                                    void* argument5, int32 argument6, BrvVersion version);

// Passes a signed 16-bit number and a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetDocumentPathMac(short16 argument1, void* argument2, BrvVersion version);

// Passes an unsigned 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_RebuildMenuSystem(ushort16 argument1, BrvVersion version);

// Passes a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_EnableBusyDetection(short16 argument1, BrvVersion version);

// Passes a 32-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_ExecuteMenuItem(int32 argument1, BrvVersion version);

// Passes three signed 16-bit numbers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_InsertMeasures(short16 argument1, short16 argument2, short16 argument3, BrvVersion version);

// Passes three signed 16-bit numbers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_DeleteMeasures(short16 argument1, short16 argument2, short16 argument3, BrvVersion version);

// Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_NewNuvexaDocument(BrvVersion version);

// Passes a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_CloseNuvexaDocument(short16 argument1, BrvVersion version);

// Passes a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_IsNuvexaDocumentDirty(short16 argument1, BrvVersion version);

// Passes two signed 16-bit numbers through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetNuvexaDocumentDirty(short16 argument1, short16 argument2, BrvVersion version);

// Passes a pointer and five signed 16-bit numbers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_OpenDocument(void* argument1, short16 argument2, short16 argument3, short16 argument4,
                                   short16 argument5, short16 argument6, BrvVersion version);

// Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_CloseCurrentDocumentWindow(BrvVersion version);

// Passes a pointer and two signed 16-bit numbers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SaveDocument(void* argument1, short16 argument2, short16 argument3, BrvVersion version);

// The number of layers that a frame can have. [default 4]
BRV_EXPORT short16 BX_GetMaxLayers(BrvVersion version);

// Whether the host is a Mach-O program: non-zero if it is. [default 0]
BRV_EXPORT short16 BX_IsMachO(BrvVersion version);

// Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetWindowCount(BrvVersion version);

// Passes a pointer and a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetWindowInfoList(void* argument1, short16 argument2, BrvVersion version);

// Passes a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetCurrentWindowInfo(void* argument1, BrvVersion version);

// Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetCurrentWindow(BrvVersion version);

// Passes a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SetCurrentWindow(void* argument1, BrvVersion version);

// Passes a pointer and a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_CopyCutMusic(void* argument1, short16 argument2, BrvVersion version);

// Passes a 32-bit number, a pointer and an 8-bit flag through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_InsertMergeMusic(int32 argument1, void* argument2, flag8 argument3, BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_OpenHelpItem(void* argument1, BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_OpenHelpItem_UTF16(void* argument1, BrvVersion version);

// Passes an unsigned 16-bit number, two pointers and a 32-bit number through. Returns the host's 16-bit result.
// [default 0]
BRV_EXPORT short16 BX_ExportSvgFromShape(ushort16 argument1, void* argument2, void* argument3, int32 argument4,
                                         BrvVersion version);

// Printing -----------------------------------------------------------------------------------------------------------

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetPrintSettings(void* argument1, BrvVersion version);

// Passes a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_PrintCurrentDocument(void* argument1, BrvVersion version);

// Passes a signed 16-bit number and a pointer through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_PrintDocument(short16 argument1, void* argument2, BrvVersion version);

// Passes a pointer, a signed 16-bit number and a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_PrintDocuments(void* argument1, short16 argument2, void* argument3, BrvVersion version);

// Parts --------------------------------------------------------------------------------------------------------------

// Returns the host's 16-bit result. [default -1]
BRV_EXPORT short16 BX_GetCurrentPartID(BrvVersion version);

// Passes a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetCurrentPartID(short16 argument1, BrvVersion version);

// Passes a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_SetCurrentPartInView(short16 argument1, BrvVersion version);

// Passes a signed 16-bit number through. Returns the host's 16-bit result. [default -1]
BRV_EXPORT short16 BX_GetNextPartID(short16 argument1, BrvVersion version);

// Passes a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetPartName(short16 argument1, BrvVersion version);

// Passes a signed 16-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetPartName_UTF16(short16 argument1, BrvVersion version);

// Returns the host's 32-bit result. [default -1]
BRV_EXPORT int32 BX_CountParts(BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_GetQVRParts(void* argument1, BrvVersion version);

// Metrics ------------------------------------------------------------------------------------------------------------

// Passes two signed 16-bit numbers, a 32-bit number, two pointers and a signed 16-bit number through. Returns the
// host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetEntryMetrics(short16 argument1, short16 argument2, int32 argument3, void* argument4,
                                      void* argument5, short16 argument6, BrvVersion version);

// Passes three pointers and a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetTGFEntryMetrics(void* argument1, void* argument2, void* argument3, short16 argument4,
                                         BrvVersion version);

// Passes two signed 16-bit numbers, a 32-bit number, two pointers and a signed 16-bit number through. Returns the
// host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetEntryMetrics2009a(short16 argument1, short16 argument2, int32 argument3, void* argument4,
                                           void* argument5, short16 argument6, BrvVersion version);

// Passes three pointers and a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetTGFEntryMetrics2009a(void* argument1, void* argument2, void* argument3, short16 argument4,
                                              BrvVersion version);

// Passes two signed 16-bit numbers, a 32-bit number, two pointers and a signed 16-bit number through. Returns the
// host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetEntryMetrics2014(short16 argument1, short16 argument2, int32 argument3, void* argument4,
                                          void* argument5, short16 argument6, BrvVersion version);

// Passes three pointers and a signed 16-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_GetTGFEntryMetrics2014(void* argument1, void* argument2, void* argument3, short16 argument4,
                                             BrvVersion version);

// Passes two signed 16-bit numbers, a pointer and a signed 16-bit number through. Returns the host's 16-bit
// result. [default 0]
BRV_EXPORT short16 BX_GetMeasureMetrics(short16 argument1, short16 argument2, void* argument3, short16 argument4,
                                        BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_FreeEntryMetrics(void* argument1, BrvVersion version);

// Passes a pointer through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_FreeMeasureMetrics(void* argument1, BrvVersion version);

// Passes two pointers, a 32-bit number, a pointer and a 32-bit number through. Returns what the host returns.
// [default 0]
BRV_EXPORT HostResult BX_GetTextMetrics_UTF16(void* argument1, void* argument2, int32 argument3, void* argument4,
                                              int32 argument5, BrvVersion version);

// File selection and alerts ------------------------------------------------------------------------------------------

// Shows an alert, with either a text of the extension's Localizable.strings (stringID; text null) or the given text
// (stringID 0). parent is the host's context that an entry point was called with, or null.
//
// Kinds: 33 asks a yes/no question, and 1 is yes; 64 is a message after a command; 48 an internal error; 0 a plain
// message. Returns the host's 16-bit answer. [default 0]
BRV_EXPORT short16 BX_AlertMessage(void* parent, ushort16 alertKind, int32 stringID, const void* text,
                                   BrvVersion version);

// The same as BX_AlertMessage, with a UTF-16 text. [default 0]
BRV_EXPORT short16 BX_AlertMessage_UTF16(void* parent, ushort16 alertKind, int32 stringID, const void* text,
                                         BrvVersion version);

// Passes a 32-bit number through. Returns what the host returns. [default 0]
BRV_EXPORT HostResult BX_DisposeBrvClipFileToken(int32 argument1, BrvVersion version);

// Passes a pointer and a 32-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SelectFileToOpen(void* argument1, int32 argument2, BrvVersion version);

// Passes a pointer and a 32-bit number through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SelectFileToSave(void* argument1, int32 argument2, BrvVersion version);

// Passes three pointers through. Returns the host's 16-bit result. [default 0]
BRV_EXPORT short16 BX_SelectFolder(void* argument1, void* argument2, void* argument3, BrvVersion version);

// Document records ---------------------------------------------------------------------------------------------------

// Loads a document record. tag is four characters, the first in the most significant byte; *size is the room in bytes
// at data, and afterwards the record's size. Returns non-zero for success.
//
// With null data only *size is set: the way to learn how much room a record wants.
//
// Preference records (tags that begin with "pf") are put together from the host's legacy records, where the host keeps
// those: the call then succeeds whether or not the host has them all, a missing one counting as zeros. Such a record is
// filled whole, whatever *size says, if it has a table in preffieldmap.h; else too little room, or a record number that
// the tag does not allow, fails.
// [default 0]
BRV_EXPORT short16 BX_LoadEData(uint32 tag, EDataKey* key, void* data, std::int32_t* size, BrvVersion version);

// Saves a document record of size bytes. Returns non-zero for success.
//
// With a version from 0x08000000 on, preference records are taken apart again into the host's legacy records, and of
// those with a table in preffieldmap.h only the legacy records are written in which a field changed. [default 0]
BRV_EXPORT short16 BX_SaveEData(uint32 tag, EDataKey* key, void* data, uint32 size, BrvVersion version);

// Creates a document record. Returns non-zero for success. [default 0]
BRV_EXPORT short16 BX_CreateEData(uint32 tag, EDataKey* key, void* data, int32 argument4, BrvVersion version);

// Deletes a document record. Returns non-zero for success. [default 0]
BRV_EXPORT short16 BX_DeleteEData(uint32 tag, EDataKey* key, BrvVersion version);

// Goes to the record before a key. Returns non-zero for success. [default 0]
BRV_EXPORT short16 BX_PreviousEData(uint32 tag, EDataKey* key, void* data, int32 argument4, BrvVersion version);

// Goes to the record behind a key. Returns non-zero for success. [default 0]
BRV_EXPORT short16 BX_NextEData(uint32 tag, EDataKey* key, void* data, int32 argument4, BrvVersion version);

}  // extern "C"
