/* A complete CAD host in C11: all that a program has to do to get NC files out of Brindle.
 *
 *     host_c TUNING                          post-processes the little part that SendPart() draws
 *     host_c TUNING DRAWING.cf2              post-processes a CFF2 drawing
 *     host_c TUNING DRAWING.cf2 OUTPUT.nc    writes to a file; without it the NC text goes to standard output
 *
 * Build it with `cc -std=c11 main.c -lBrindleDrv`. Run without arguments it takes the example laser_mm.
 *
 * Brindle opens no tuning file and writes no NC file: the host reads the one and writes the other. Every function
 * returns 0, always, so results are not looked at here. What a run meets is in the NC text, if the tuning wants it
 * there. What is dropped in silence is not: tuning lines that can't be understood (`brindle check` finds them),
 * lines and arcs of a tool that the tuning lacks, calls of a missing program, a drawing without records. A host that
 * takes these from its users looks at them first.
 */
#include <brindle/brindle.h>

#include <locale.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <wchar.h>

enum { kLongestTransfer = 200, kLongestName = 4096 };

static void Fail(const char* what, const char* name) {
    fprintf(stderr, "host_c: %s: %s\n", name, what);
    exit(EXIT_FAILURE);
}

static void* Checked(void* memory) {
    if (memory == NULL) Fail("out of memory", "host_c");
    return memory;
}

/* ---- Text ----
 * The interface takes wide strings. A host that holds its text in UTF-8 converts it, as here; one that has wide strings
 * anyway hands them over as they are. */

/* The wide form of `text`, to be freed by the caller. `name` says whose text it is. */
static wchar_t* Widened(const char* text, const char* name) {
    const size_t length = mbstowcs(NULL, text, 0);
    if (length == (size_t)-1) Fail("text that is not UTF-8", name);
    wchar_t* const wide = Checked(calloc(length + 1, sizeof *wide));
    mbstowcs(wide, text, length + 1);
    return wide;
}

/* Calls one of the setters that take a name or a text. */
static void SetText(int (*setter)(const wchar_t*), const char* text) {
    wchar_t* const wide = Widened(text, text);
    setter(wide);
    free(wide);
}

/* The same for the name of a file, which NC text is to show without its folders. */
static void SetFileName(int (*setter)(const wchar_t*), const char* path) {
    const char* const slash = strrchr(path, '/');
    SetText(setter, slash != NULL ? slash + 1 : path);
}

/* Adds the present time to the job. */
static void SetPresentTime(void) {
    const time_t now = time(NULL);
    char date[32], clock[32];
    strftime(date, sizeof date, "%Y-%m-%d", localtime(&now));
    strftime(clock, sizeof clock, "%H:%M:%S", localtime(&now));
    SetText(GBrn_SetDate, date);
    SetText(GBrn_SetTime, clock);
}

/* ---- Tuning ---- */

/* Hands over one line. A host whose string transfer is limited sends a longer line in pieces: all but the last go into
 * the line buffer, and the library joins them. */
static void SendTuningLine(wchar_t* line) {
    size_t length = wcslen(line);
    while (length > kLongestTransfer) {
        const wchar_t kept = line[kLongestTransfer];
        line[kLongestTransfer] = L'\0';
        GBrn_AddToTunelineBuffer(line);
        line[kLongestTransfer] = kept;
        line += kLongestTransfer;
        length -= kLongestTransfer;
    }
    GBrn_ReadTuneLine(line);
}

/* The whole file, NUL-terminated, to be freed by the caller. */
static char* FileText(const char* path) {
    FILE* const file = fopen(path, "rb");
    if (file == NULL) Fail("can't be opened", path);
    size_t size = 0, capacity = 4096;
    char* text = Checked(malloc(capacity));
    size_t got = 0;
    while ((got = fread(text + size, 1, capacity - size - 1, file)) > 0) {
        size += got;
        if (capacity - size < 2) text = Checked(realloc(text, capacity *= 2));
    }
    if (ferror(file)) Fail("can't be read", path);
    fclose(file);
    text[size] = '\0';
    if (strlen(text) != size) Fail("holds a NUL character", path);
    return text;
}

/* Lines are handed over without their ends, and without the byte order mark that some editors write. */
static void SendTuning(const char* path) {
    SetFileName(GBrn_SetTuningFileName, path);
    char* const text = FileText(path);
    const char byte_order_mark[] = "\xEF\xBB\xBF";
    const size_t mark = strlen(byte_order_mark);
    int number = 1;
    for (char* line = strncmp(text, byte_order_mark, mark) == 0 ? text + mark : text; *line != '\0'; ++number) {
        const size_t length = strcspn(line, "\n");
        const bool is_last = line[length] == '\0';
        line[length] = '\0';
        line[strcspn(line, "\r")] = '\0';
        char place[kLongestName];
        snprintf(place, sizeof place, "%s:%d", path, number);
        wchar_t* const wide = Widened(line, place);
        SendTuningLine(wide);
        free(wide);
        line += is_last ? length : length + 1;
    }
    free(text);
}

/* ---- Job ----
 * Millimetres and radians. The tool id is the number of a tool of the tuning; a host that knows line types has a table
 * from one to the other. */

enum { kCut = 1, kCrease = 2 };

static void Cut(double x1, double y1, double x2, double y2) { GBrn_AddLine(kCut, 1, 0.7, x1, y1, x2, y2, 0.0, 0); }

/* A hole. An arc that ends where it starts is a full circle; a negative radius means counter-clockwise. */
static void Hole(double x, double y, double radius) {
    GBrn_AddArc(kCut, 1, 0.7, x + radius, y, x + radius, y, x, y, -radius, 0.0, 0);
}

/* A card of 80 x 50 mm with a crease, a hole and one rounded corner. */
static void SendPart(void) {
    SetText(GBrn_SetFileName, "card");
    GBrn_StartMain(L"CARD", 40.0, 25.0, 0, 1);
    GBrn_AddLine(kCrease, 2, 0.7, 0.0, 20.0, 80.0, 20.0, 5.0, 2); /* with two bridges of 5 mm */
    Hole(15.0, 35.0, 4.0);
    Cut(0.0, 0.0, 0.0, 50.0);
    Cut(0.0, 50.0, 70.0, 50.0);
    GBrn_AddArc(kCut, 1, 0.7, 70.0, 50.0, 80.0, 40.0, 70.0, 40.0, 10.0, 0.0, 0);
    Cut(80.0, 40.0, 80.0, 0.0);
    Cut(80.0, 0.0, 0.0, 0.0);
    GBrn_SetBlankSize(100.0, 70.0);
}

/* A drawing that lies in a file goes in by its name. A file that can't be opened changes nothing, so the host looks
 * first. */
static void SendDrawing(const char* path) {
    FILE* const file = fopen(path, "rb");
    if (file == NULL) Fail("can't be opened", path);
    fclose(file);
    SetFileName(GBrn_SetFileName, path);
    SetText(GBrn_OpenCF2File, path);
}

/* ---- Output ---- */

/* Whether a piece is no NC text but asks for a dwell. What follows the marker is the parameter of the dwell. */
static bool IsDwell(const wchar_t* piece) {
    wchar_t* marker = NULL;
    GBrn_GetIODwellStr(&marker);
    const bool is_dwell = wcsncmp(piece, marker, wcslen(marker)) == 0;
    SysFreeString(marker);
    return is_dwell;
}

/* Writes a piece in UTF-8. Its length is asked for, because a tuning may put NUL characters into the NC text. */
static void WritePiece(FILE* out, const wchar_t* piece) {
    const unsigned int length = SysStringLen(piece);
    mbstate_t state = {0};
    for (unsigned int i = 0; i < length; ++i) {
        char bytes[16];
        const size_t count = wcrtomb(bytes, piece[i], &state);
        if (count == (size_t)-1) Fail("a character that UTF-8 can't hold", "NC text");
        fwrite(bytes, 1, count, out);
    }
}

/* Takes all pieces of the current buffer. A piece is gone from the buffer once it is taken, and its string is the
 * host's. */
static void WriteBuffer(FILE* out) {
    int more = 0;
    for (GBrn_CurBufferHasMoreData(&more); more; GBrn_CurBufferHasMoreData(&more)) {
        wchar_t* piece = NULL;
        GBrn_GetOutputBuffer(&piece);
        if (IsDwell(piece))
            fprintf(stderr, "host_c: the machine is to dwell here: %ls\n", piece);
        else
            WritePiece(out, piece);
        SysFreeString(piece);
    }
}

/* The name of segment `number`: `part.nc` gives `part-2.nc`. */
static void SegmentName(char* name, size_t size, const char* path, int number) {
    const char* const dot = strrchr(path, '.');
    const int stem = dot != NULL ? (int)(dot - path) : (int)strlen(path);
    snprintf(name, size, "%.*s-%d%s", stem, path, number, path + stem);
}

/* There is more than one buffer if the tuning limits the size of a file; each is a complete NC file. There is none if
 * the tuning gave no text at all, as one whose lines were all dropped, or if memory ran out. */
static void WriteAll(const char* path, const char* tuning) {
    short count = 0;
    GBrn_GetNumOfBuffers(&count);
    if (count == 0) Fail("gives no NC text", tuning);
    for (short number = 1; number <= count; ++number) {
        GBrn_SetCurBuffer(number);
        char name[kLongestName];
        if (count > 1 && path != NULL) SegmentName(name, sizeof name, path, number);
        const char* const target = count > 1 ? name : path;
        FILE* const out = path != NULL ? fopen(target, "wb") : stdout;
        if (out == NULL) Fail("can't be written", target);
        WriteBuffer(out);
        if (fflush(out) != 0 || (out != stdout && fclose(out) != 0)) Fail("can't be written", target);
    }
}

int main(int argc, char** argv) {
    if (setlocale(LC_CTYPE, "C.UTF-8") == NULL) Fail("no locale C.UTF-8", "host_c");
    const char* const tuning = argc > 1 ? argv[1] : "examples/laser_mm/laser_mm.tun";
    const char* const drawing = argc > 2 ? argv[2] : NULL;
    const char* const output = argc > 3 ? argv[3] : NULL;

    GBrn_Clear(); /* each job begins so: GBrn_ClearTuning alone keeps the run-time data definition of the last tuning */
    GBrn_SetAutoUnitsToInches(0); /* before the drawing, which may know better */
    SendTuning(tuning);
    SetPresentTime();
    if (output != NULL) SetFileName(GBrn_SetOutputName, output);
    if (drawing != NULL)
        SendDrawing(drawing);
    else
        SendPart();

    GBrn_End();
    WriteAll(output, tuning);
    GBrn_Clear(); /* ends the session; the next call would begin a new one */
    return EXIT_SUCCESS;
}
