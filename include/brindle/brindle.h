/* Brindle: a configurable NC post-processor for flat cutting jobs. The interface of the library for C and C++ hosts.
 *
 * A host delivers a tuning (the description of one machine controller), then the geometry of a job, calls GBrn_End, and
 * takes the NC text piece by piece. `examples/host_c` is a complete host.
 *
 * Conventions
 *
 *  1. There is one session per process. It begins with the first call that needs it and ends with GBrn_Clear.
 *     Nothing is guarded: call from one thread at a time. The three dialogs (GBrn_Display...) must be called from the
 *     GUI thread: the one that made the host's QApplication or, in a host without one, the one that opened the first
 *     dialog. They return when the user has closed the dialog. All other functions may be called from any thread.
 *  2. Every function returns 0, always. Trouble that a run meets shows as messages in the NC text
 *     (`bErrorsAsComments`), and in the text itself; what was dropped before the run shows nowhere. No function holds
 *     the NC text against the geometry, as the command `brindle post` does: that it cuts what was sent is not checked.
 *     Functions may be called in any order; one that makes no sense at its time has no effect. No C++ exception leaves
 *     a function. If memory runs out in one, the session ends, and GBrn_End gives no buffer before the host has called
 *     GBrn_Clear: a job that lacks a record must not reach a machine.
 *  3. Coordinates and lengths are millimetres and angles are radians, counter-clockwise from x, whatever the output
 *     units are. Any finite number may be given. A number that is not finite makes the call have no effect.
 *  4. Strings are wide (wchar_t), NUL-terminated. A null string argument counts as empty. The library keeps no
 *     pointer of the host's.
 *  5. A string given to the host is a new system string: the host owns it and frees it with SysFreeString. It is
 *     NUL-terminated, but may hold NUL characters too; SysStringLen gives its length. It is null if there is no memory
 *     for it; a piece of the output then stays in its buffer. A null out-parameter is skipped.
 *  6. A flag is true for any value but 0.
 *
 * Order of a job: GBrn_Clear; GBrn_ReadTuneLine for each line; the GBrn_Set... functions; GBrn_StartMain and its
 * records, GBrn_StartSub and its records; GBrn_End; then for each buffer GBrn_SetCurBuffer and, while
 * GBrn_CurBufferHasMoreData gives 1, GBrn_GetOutputBuffer. To run again, change what changes and call GBrn_End again.
 * For another tuning begin anew with GBrn_Clear; GBrn_ClearTuning says how job data and geometry can stay.
 *
 * What is dropped
 *
 *  - When it is sent, in silence: a line of the tuning that can't be understood; a record before the first program; a
 *    text while a sub-program is current; a call with a number that is not finite.
 *  - In the run, in silence: a line or arc whose tool number is above `nNumOfTools` or below 0, unless `bDefaultTool`
 *    is true; a call of a program that was not sent, that has no records, or whose only record ends where it starts,
 *    as a circle does; what no template writes, such as arcs without an Arc_tTmpl.
 *  - In the run, with a message: a record whose tool is unused or 0; a text while the output is incremental, or
 *    `bUseText` is not true; a call within itself, calls more than 64 deep or 1,000,000 in all, where calls are
 *    expanded; a value that can't be evaluated.
 */
#ifndef BRINDLE_BRINDLE_H
#define BRINDLE_BRINDLE_H

#include <wchar.h>

#if defined(__GNUC__)
#define BRINDLE_API __attribute__((visibility("default")))
#else
#define BRINDLE_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Session ---- */

/* Ends the session with all that it owns: tuning, job data, geometry, output. With no session it does nothing. Pieces
 * kept by GBrn_AddToTunelineBuffer stay. */
BRINDLE_API int GBrn_Clear(void);

/* ---- Tuning ----
 * A tuning is a sequence of lines, one typed item each (`BOOL bUseSubs true`). The library opens no tuning file: the
 * host reads the file and delivers its lines, and takes the text back with GBrn_GetTuning to save it. A line that can't
 * be understood is dropped. */

/* Sets the name that `@TuneFile` prints. */
BRINDLE_API int GBrn_SetTuningFileName(const wchar_t* name);
/* Destroys the items of the tuning. The run-time data definition stays, and so does its date: lines that are read later
 * add to it, so the rows and columns of another tuning would follow those of the old one. For another tuning begin with
 * GBrn_Clear or, to keep job data and geometry, empty the definition too: GBrn_ReadRTDDefFromFile with an empty file,
 * then the tuning line `UPD 0`. */
BRINDLE_API int GBrn_ClearTuning(void);
/* Keeps a piece of a line that is too long for one transfer; the next line that is read gets all pieces in front. Needs
 * no session. */
BRINDLE_API int GBrn_AddToTunelineBuffer(const wchar_t* piece);
/* Reads one line: the kept pieces and `text`. It comes without its line end, and the first of a file without the byte
 * order mark, with which it would be dropped. */
BRINDLE_API int GBrn_ReadTuneLine(const wchar_t* text);
/* The same, but run-time data rows, columns, messages and values are dropped. */
BRINDLE_API int GBrn_ReadTuneLineIgnoreRTDDefs(const wchar_t* text);
/* Gives the first key of the tuning, empty if it has none. */
BRINDLE_API int GBrn_GetStartKey(wchar_t** key);
/* Gives the line of the item `key` and the key after it, empty after the last. Both are empty for an unknown key.
 * Run-time data lines do not come this way. */
BRINDLE_API int GBrn_GetNextTuneLine(const wchar_t* key, wchar_t** line, wchar_t** next_key);
/* Gives all lines in key order, each with a character of code 8 after it. */
BRINDLE_API int GBrn_GetTuning(wchar_t** text);
/* Opens the tuning editor on the session's tuning. `inches` sets the units it shows. `result` becomes 1 if the user
 * left it with OK, otherwise 0. Without a display the dialog ends as cancelled. GUI thread. */
BRINDLE_API int GBrn_DisplayTuningDialog(int inches, const wchar_t* title, int* result);

/* ---- Job data ----
 * Each is stored for the next run and stays from run to run. */

/* Texts of `@Date` and `@Time`. */
BRINDLE_API int GBrn_SetDate(const wchar_t* date);
BRINDLE_API int GBrn_SetTime(const wchar_t* time);
/* Both at once: what comes before the first `-` is the date, what comes after it the time. */
BRINDLE_API int GBrn_SetDateTime(const wchar_t* text);
/* The blank's size, millimetres. */
BRINDLE_API int GBrn_SetBlankSize(double x, double y);
/* The host's units, which decide the output units if the tuning's `bOutUnitsAuto` is true. */
BRINDLE_API int GBrn_SetAutoUnitsToInches(int inches);
/* The radius of the rotary axis: inches if the host's units are inches at this moment, otherwise millimetres. A radius
 * below 1 mm counts as none, and the tuning's `rDefRotRadiusMM` is used. */
BRINDLE_API int GBrn_SetRotaryRadius(double radius);
/* Where the machine goes at the end of the main program, millimetres. */
BRINDLE_API int GBrn_SetFinalPosition(double x, double y);
/* No final move. */
BRINDLE_API int GBrn_SetNullFinalPos(void);
/* Other than 0, a tile: the run outputs the main program alone, with its calls expanded. 0 is a normal run. */
BRINDLE_API int GBrn_SetTileToOutput(short tile);
BRINDLE_API int GBrn_GetTileToOutput(short* tile);
/* Texts of `@OutputFile`, `@CADFile` and `@MaterialFile`. */
BRINDLE_API int GBrn_SetOutputName(const wchar_t* name);
BRINDLE_API int GBrn_SetFileName(const wchar_t* name);
BRINDLE_API int GBrn_SetMaterialFile(const wchar_t* name);
/* Text of `@DataSetName`, and the dataset of run-time data that the run uses. For one that the tuning lacks, or none,
 * the run sets the name of its first, in silence: set it again for another tuning. */
BRINDLE_API int GBrn_SetDataSetName(const wchar_t* name);
/* Text of `@TuneMenuPick`, and the name under which run-time data values are stored for the user. */
BRINDLE_API int GBrn_SetTuneMenuPick(const wchar_t* name);

/* ---- Geometry ----
 * A job is a main program and any number of sub-programs. Records go to the program that was started last; before the
 * first there is none, and records are dropped.
 *
 * `tool_id`, from 1 to 32,767, is the number of a tool of the tuning; GBrn_AddLine says what other numbers do.
 * `line_type` is the host's own number for the kind of line (cut, crease, ...), any 16-bit number. It chooses nothing:
 * `@LineType` prints it, and messages name a record by it. In a drawing both are the type word. Widths are millimetres;
 * `@CutWidth`, `@BridgeWidth` and `@BridgeNum` print them and the bridge count, and nothing else uses them. */

/* Destroys all programs and starts the main program. The centre is that of the program's bounding box, millimetres.
 * `inside` and `horizontal` decide what `@SideCode` and `@GrainCode` print. A start that is refused, for a number that
 * is not finite, leaves all programs and the current one as they are: the records that follow go there. */
BRINDLE_API int GBrn_StartMain(const wchar_t* name, double center_x, double center_y, int inside, int horizontal);
/* Starts a sub-program. The main program must come first: the first program is the main program. A refused start is as
 * for GBrn_StartMain. */
BRINDLE_API int GBrn_StartSub(const wchar_t* name, double center_x, double center_y, int inside, int horizontal);
/* Adds a line. A line or arc of a tool that the tuning does not have is output with the default tool if `bDefaultTool`
 * is true; a number below 1 never switches it on. Otherwise it is left out: in silence for a number above `nNumOfTools`
 * or below 0, with a message for 0 and for the number of an unused tool. */
BRINDLE_API int GBrn_AddLine(short tool_id, short line_type, double cut_width, double start_x, double start_y,
                             double end_x, double end_y, double bridge_width, short bridge_count);
/* Adds an arc, or a circle whose start is its end. The sign of the radius gives the direction: positive is clockwise,
 * negative counter-clockwise. Its absolute value is the distance from the centre to the start and to the end. */
BRINDLE_API int GBrn_AddArc(short tool_id, short line_type, double cut_width, double start_x, double start_y,
                            double end_x, double end_y, double center_x, double center_y, double radius,
                            double bridge_width, short bridge_count);
/* Adds a text to the main program; while a sub-program is current it is dropped. `rotation` is radians. The two extra
 * lengths and the extra value are stored; no output uses them. A text of an unknown tool is left out with a message. */
BRINDLE_API int GBrn_AddText(short tool_id, short line_type, double start_x, double start_y, double end_x, double end_y,
                             double first_length, double rotation, double extra_value, double second_length,
                             double height, const wchar_t* text);
/* Adds a call of the sub-program `name`, placed at (x, y), rotated by `rotation` radians counter-clockwise and
 * mirrored: `mirror_x` negates x, `mirror_y` negates y. The sub-program may be sent later. A call of an unknown one
 * gives no output, in silence. */
BRINDLE_API int GBrn_AddInclude(const wchar_t* name, double x, double y, double center_x, double center_y,
                                double rotation, int mirror_x, int mirror_y);
/* Reads a CFF2 drawing in place of all programs, as if it came through the functions above. Lines that are no record
 * of a job are skipped in silence, and so are records that are short. A byte order mark is skipped. A file that can't
 * be opened changes nothing. */
BRINDLE_API int GBrn_OpenCF2File(const wchar_t* path);

/* ---- Run-time data ----
 * Values that templates use (`<RTD(1,2)>`) but that are settled at output time. The exchange: read the definition file,
 * take each expression and set its value, then update the defaults. */

/* Reads a definition file in place of the tuning's definition; its expressions become pending. A byte order mark is
 * skipped. A file that can't be opened leaves the definition empty. */
BRINDLE_API int GBrn_ReadRTDDefFromFile(const wchar_t* path);
/* Takes the next pending expression: its text, and 1 for a text or 0 for a number. With none left `expression` is empty
 * and `is_text` is left alone. With a null `expression` one is taken away all the same, and nobody learns which. */
BRINDLE_API int GBrn_GetNextRTDExpr(wchar_t** expression, int* is_text);
/* Hands over what the host computed for an expression. */
BRINDLE_API int GBrn_SetRTDExprValue(const wchar_t* expression, const wchar_t* value);
/* Reads the definition file again, now with the values of its expressions, and keeps its name. */
BRINDLE_API int GBrn_UpdateDefaultValuesForExpressions(const wchar_t* path);
/* Gives that name. */
BRINDLE_API int GBrn_GetNameTuneFileForRTDDef(wchar_t** path);
/* Forgets the values of the last run and that name. The definition stays. */
BRINDLE_API int GBrn_ClearRunTimeData(void);
/* Lets the user set the values of a dataset, of the definition in `definition_path` or, if that is empty, of the
 * tuning's. `chosen` becomes the dataset that was shown last, empty if the user cancelled. GUI thread. */
BRINDLE_API int GBrn_DisplayRTDataDlg(const wchar_t* definition_path, const wchar_t* dataset,
                                      const wchar_t* tuning_pick, wchar_t** chosen);

/* ---- Output ---- */

/* Runs the tuning over the geometry. Output of an earlier run is discarded; the geometry stays, and the function may be
 * called again. */
BRINDLE_API int GBrn_End(void);
/* The number of output buffers. More than one means that the tuning limits the size of a file; each is a complete NC
 * file. The count has 16 bits: a tuning that makes more than 32,767 files can't be fetched whole. */
BRINDLE_API int GBrn_GetNumOfBuffers(short* count);
/* Makes buffer `number`, from 1, the current one. GBrn_End makes it the last one. Other numbers change nothing. */
BRINDLE_API int GBrn_SetCurBuffer(short number);
/* 1 if the current buffer holds a further piece, otherwise 0. */
BRINDLE_API int GBrn_CurBufferHasMoreData(int* more);
/* Takes the next piece of the current buffer, which then is gone from it; empty if there is none. Written one after
 * the other, with nothing between them, the pieces of a buffer are the NC file. With a null pointer a piece is taken
 * away all the same, and the NC text lacks it. */
BRINDLE_API int GBrn_GetOutputBuffer(wchar_t** text);
/* Gives "IODWELL". A piece that begins with it is no NC text but asks the host for a dwell; its parameter follows. */
BRINDLE_API int GBrn_GetIODwellStr(wchar_t** text);
/* With more than one buffer, lets the user choose the current one. GUI thread. */
BRINDLE_API int GBrn_DisplayLoadSegmentDialog(void);

/* ---- System strings ---- */

/* Frees a string that the library gave. Null is fine. */
BRINDLE_API void SysFreeString(wchar_t* text);
/* The number of characters of such a string, without its terminating NUL; 0 for null. */
BRINDLE_API unsigned int SysStringLen(const wchar_t* text);

#ifdef __cplusplus
}
#endif

#endif /* BRINDLE_BRINDLE_H */
