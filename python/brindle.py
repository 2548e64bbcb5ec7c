"""Brindle for Python: a host that makes NC text from a tuning and geometry, over the library libBrindleDrv.

    import brindle

    with brindle.Host() as host:
        host.load_tuning("laser.tun")
        host.start_main("CARD", center=(40.0, 25.0))
        host.add_line(1, (0.0, 0.0), (0.0, 50.0))
        nc = host.run()
        for message in host.messages():
            print(message)
    brindle.write_nc("card.nc", nc.segments)
    for finding in brindle.check("laser.tun", "card.cf2"):
        print(finding["line"], finding["message"])

Units are those of the library, whatever the NC text is in: coordinates and lengths are millimetres, angles are radians,
counter-clockwise. A tool is its number in the tuning, from 1.

The library has one session in each process, so a process has one live Host. To work on several jobs at the same time
use several processes, as examples/python/post_folder.py does. A Host belongs to the thread that made it.

The library is found, in this order, at the path given to Host, at that of the environment variable BRINDLE_LIBRARY,
beside this file, and where the system looks for libraries.
"""
import collections
import ctypes
import dataclasses
import errno
import json
import math
import os
import re
import subprocess
import tempfile

__all__ = ["BrindleError", "LibraryMissing", "HostInUse", "InputError", "RunError", "Host", "NcText",
           "check", "write_nc"]

_LIBRARY_NAME = "libBrindleDrv.so"
_SONAME = "libBrindleDrv.so.1"

# The arguments of the exports in use: h short, i flag, d double, t text; in capitals results, I an int.
_EXPORTS = {
    "GBrn_Clear": "",
    "GBrn_SetTuningFileName": "t",
    "GBrn_ClearTuning": "",
    "GBrn_ReadTuneLine": "t",
    "GBrn_ReadTuneLineIgnoreRTDDefs": "t",
    "GBrn_GetTuning": "T",
    "GBrn_SetDate": "t",
    "GBrn_SetTime": "t",
    "GBrn_SetBlankSize": "dd",
    "GBrn_SetAutoUnitsToInches": "i",
    "GBrn_SetRotaryRadius": "d",
    "GBrn_SetFinalPosition": "dd",
    "GBrn_SetTileToOutput": "h",
    "GBrn_SetOutputName": "t",
    "GBrn_SetFileName": "t",
    "GBrn_SetMaterialFile": "t",
    "GBrn_SetDataSetName": "t",
    "GBrn_SetTuneMenuPick": "t",
    "GBrn_StartMain": "tddii",
    "GBrn_StartSub": "tddii",
    "GBrn_AddLine": "hhddddddh",
    "GBrn_AddArc": "hhdddddddddh",
    "GBrn_AddText": "hhdddddddddt",
    "GBrn_AddInclude": "tdddddii",
    "GBrn_OpenCF2File": "t",
    "GBrn_ReadRTDDefFromFile": "t",
    "GBrn_GetNextRTDExpr": "TI",
    "GBrn_SetRTDExprValue": "tt",
    "GBrn_UpdateDefaultValuesForExpressions": "t",
    "GBrn_End": "",
    "GBrn_GetNumOfBuffers": "H",
    "GBrn_SetCurBuffer": "h",
    "GBrn_CurBufferHasMoreData": "I",
    "GBrn_GetOutputBuffer": "T",
    "GBrn_GetIODwellStr": "T",
}
_RESULT_TYPES = {"T": ctypes.c_void_p, "H": ctypes.c_short, "I": ctypes.c_int}
_ARGUMENT_TYPES = {"h": ctypes.c_short, "i": ctypes.c_int, "d": ctypes.c_double, "t": ctypes.c_wchar_p}

# Characters for private use around a message, so that no NC text looks like one.
_MESSAGE_OPENER = "\ue0b0brindle:"
_MESSAGE_CLOSER = "\ue0b1"


class BrindleError(Exception):
    """The base of all exceptions of this module."""


class LibraryMissing(BrindleError):
    """The library can't be found, or is no Brindle library."""


class HostInUse(BrindleError):
    """There is a live Host in this process already."""


class InputError(BrindleError):
    """A tuning, drawing or definition file that can't be read or used; the text is the message."""


class RunError(BrindleError):
    """A run that has messages; `messages` are those of Host.messages()."""

    def __init__(self, messages):
        super().__init__("\n".join(messages))
        self.messages = list(messages)


@dataclasses.dataclass(frozen=True)
class NcText:
    """The output of a run.

    segments: the NC files, one text each, with their line ends. There is one unless the tuning limits their size.
    dwells: the parameters of the dwells that the tuning asks the host for, such as "1.5"; the text is without them.
    """

    segments: list
    dwells: list

    @property
    def text(self):
        """All segments, one after the other."""
        return "".join(self.segments)


# ---- Library ----


def _open_library(path):
    beside = os.path.join(os.path.dirname(os.path.abspath(__file__)), _LIBRARY_NAME)
    path = path or os.environ.get("BRINDLE_LIBRARY") or (beside if os.path.exists(beside) else _SONAME)
    try:
        library = ctypes.CDLL(os.fspath(path))
        for name, signature in _EXPORTS.items():
            function = getattr(library, name)
            function.restype = ctypes.c_int
            function.argtypes = [
                _ARGUMENT_TYPES.get(code) or ctypes.POINTER(_RESULT_TYPES[code]) for code in signature
            ]
        library.SysFreeString.argtypes = library.SysStringLen.argtypes = [ctypes.c_void_p]
        library.SysFreeString.restype = None
        library.SysStringLen.restype = ctypes.c_uint
    except (OSError, AttributeError) as error:
        raise LibraryMissing(f"no Brindle library at {path}: {error}") from error
    return library


def _argument(code, value):
    """`value` as the library takes it: what would arrive as something else is a ValueError or TypeError here."""
    if code == "t":
        if not isinstance(value, str):
            raise TypeError(f"not a text: {value!r}")
        if "\0" in value:
            raise ValueError(f"text with a NUL character: {value!r}")
        return value
    if code == "i":
        return int(bool(value))
    try:
        finite = math.isfinite(value)
    except TypeError:
        raise TypeError(f"not a number: {value!r}") from None
    except OverflowError:
        finite = False
    if not finite:
        raise ValueError(f"not a finite number: {value}")
    if code == "d":
        return float(value)
    if value != int(value) or not -32768 <= value <= 32767:
        raise ValueError(f"not a whole number of 16 bits: {value}")
    return int(value)


def _point(value):
    try:
        x, y = value
    except (TypeError, ValueError) as error:
        raise type(error)(f"not a pair (x, y): {value!r}") from None
    return x, y


# ---- Text ----


def _decoded(data):
    """Text of a file: UTF-8, where each byte that is no part of it counts as the character of its code."""
    text = data.decode("utf-8", "surrogateescape")
    return re.sub("[\udc80-\udcff]", lambda byte: chr(ord(byte[0]) - 0xDC00), text)


def _lines(text):
    lines = text.removeprefix("\ufeff").split("\n")
    if not lines[-1]:
        lines.pop()
    return [line.removesuffix("\r") for line in lines]


def _read(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except OSError as error:
        raise InputError(f"{path}: {error.strerror}") from error


def _library_path(path):
    """A path as the library can open it."""
    path = os.path.abspath(os.fspath(path))
    try:
        path.encode("utf-8")
    except UnicodeEncodeError as error:
        raise InputError(f"{path!r}: the name is not UTF-8") from error
    return path


def _name(path):
    return os.path.basename(os.fspath(path))


# ---- What a run leaves out in silence ----

_DEFINITION_WORDS = {"UPD", "ROW", "COL", "MSG", "DATASETDEF", "DSD"}


_TYPE_WORDS = {"BOOL", "INT", "REAL", "TEXT", "MULTI", "T_EXPR", "R_EXPR"}


def _dropped_lines(lines, path):
    """Messages for the lines of a tuning that the library drops."""
    messages = []
    for number, line in enumerate(lines, 1):
        words = _words(line)
        if not words or (words[0] == "MULTI" and len(words) == 2):
            continue
        needed = 2 if words[0] in _DEFINITION_WORDS else 3
        if words[0] not in _TYPE_WORDS | _DEFINITION_WORDS:
            messages.append(f"{path}:{number}: unknown type word {words[0]!r}: the line is dropped")
        elif len(words) < needed:
            messages.append(f"{path}:{number}: the line has too few words and is dropped")
    return messages


class _Records:
    """What a run can leave out in silence: lines and arcs by tool, and calls by the program called."""

    def __init__(self, main_name=None):
        self.programs = set() if main_name is None else {main_name}
        self.tools = collections.Counter()
        self.calls = collections.Counter()

    def start_sub(self, name):
        self.programs.add(name)

    def add_cut(self, tool):
        # Before the first program the library drops what comes.
        if self.programs:
            self.tools[int(tool)] += 1

    def add_call(self, name):
        if self.programs:
            self.calls[name] += 1


def _records_of_drawing(lines):
    """The records that the library takes from a CFF2 drawing; None without a main program."""
    records, main_name, has_main = _Records(), "", False
    rest = iter(lines)
    for line in rest:
        words = re.findall("[^ \t,]+", line)
        count = len(words)
        if count < 2:
            continue
        kind = words[0]
        if kind.upper() == "MAIN":
            main_name = words[1]
        elif kind == "UR" and count >= 3:
            records, has_main = _Records(main_name), True
        elif kind == "SUB":
            records.start_sub(words[1])
        elif kind == "C" and count >= 7:
            records.add_call(words[1])
        elif kind == "T":
            next(rest, None)  # the text itself, which may look like a record
        elif (kind == "L" and count >= 10) or (kind == "A" and count >= 13):
            number = re.match("[+-]?[0-9]+", words[2])
            records.add_cut(ctypes.c_short(int(number[0]) if number else 0).value)
    return records if has_main else None


def _words(line):
    """The words of a line of a definition; quoted ones stay whole."""
    return re.findall("\"[^\"]*\"?|'[^']*'?|[^ ]+", line.replace("\t", " "))


def _unescaped(word):
    return word.replace("!#SP#!", " ").replace("!#EMPTY#!", "")


def _open_expressions(lines, has_value):
    """The expressions of a definition that have no value: for each dataset by the run-time data word that needs it."""
    datasets = {}
    for line in lines:
        words = _words(line)
        if len(words) >= 2 and words[0] == "DATASETDEF":
            datasets.setdefault(_unescaped(words[1]), {})
        if len(words) < 5 or words[0] != "DSD" or _unescaped(words[1]) not in datasets:
            continue
        expression = _unescaped(words[4])
        is_open = words[2].upper() in ("R_EXPR", "T_EXPR") and expression and not has_value(expression)
        datasets[_unescaped(words[1])][words[3]] = expression if is_open else ""
    return datasets


def _is_number(text):
    return re.fullmatch(r"[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?", text) is not None


def _counted(count, noun):
    return f"{count} {noun}" if count == 1 else f"{count} {noun}s"


class Host:
    """The session of this process: give it a tuning and geometry, run it, and take the NC text.

    Use it in a `with` statement, or call close(): both end the session with all that it holds. `library` is the path of
    libBrindleDrv.so, if it is not where this module looks for it.

    A program must be started before geometry is added; start_main() drops all geometry. Tuning, job data and geometry
    stay for further runs. Arguments that the library could not take as they are raise ValueError, those of a wrong type
    TypeError.
    """

    _live_in = None  # the process that has a live Host

    def __init__(self, library=None):
        if Host._live_in == os.getpid():
            raise HostInUse("the library has one session in a process: close the other Host first")
        self._library = _open_library(library)
        self._item_lines = []
        self._dropped_lines = []
        self._open_expressions = {}
        self._dataset = ""
        self._records = _Records()
        Host._live_in = os.getpid()
        self._call("GBrn_Clear")
        self._dwell_marker = self._call("GBrn_GetIODwellStr")

    def __enter__(self):
        return self

    def __exit__(self, *exception):
        self.close()

    def close(self):
        """Ends the session. A second call does nothing."""
        if self._library is not None:
            self._call("GBrn_Clear")
            self._library = None
            Host._live_in = None

    # ---- Tuning ----

    def load_tuning(self, path, expressions=()):
        """Reads a tuning file in place of the current tuning. `expressions` is as for read_tuning()."""
        self.read_tuning(_decoded(_read(path)), expressions, os.fspath(path))

    def read_tuning(self, text, expressions=(), path="tuning"):
        """Takes a tuning, one item a line, in place of the tuning and its run-time data; geometry stays.

        Lines that can't be understood are dropped; messages() has them, and check() says more. `expressions` maps
        expressions of the tuning's run-time data to their values, texts or numbers. `path` is for messages, and its
        last part for NC text.
        """
        lines = _lines(text)
        values = {expression: str(value) for expression, value in dict(expressions).items()}
        for number, line in enumerate(lines, 1):
            if "\0" in line:
                raise InputError(f"{path}:{number}: the line holds a NUL character: this is no tuning")
        self._call("GBrn_ClearTuning")
        # The definition of the tuning before stays, and so does its date: an empty one takes its place.
        self._call("GBrn_ReadRTDDefFromFile", os.devnull)
        self._call("GBrn_ReadTuneLine", "UPD 0")
        for expression, value in values.items():
            self._call("GBrn_SetRTDExprValue", expression, value)
        for line in lines:
            self._call("GBrn_ReadTuneLine", line)
        self._call("GBrn_SetTuningFileName", _name(path))
        self._item_lines = [line for line in lines if not _DEFINITION_WORDS.intersection(_words(line)[:1])]
        self._dropped_lines = _dropped_lines(lines, path)
        # Without a value an expression counts as itself, which is right for a number.
        self._open_expressions = _open_expressions(lines, lambda text: text in values or _is_number(text))

    def tuning(self):
        """The tuning as the library holds it, one item a line."""
        return self._call("GBrn_GetTuning").replace("\b", "\n")

    def load_run_time_data(self, path, value_of):
        """Reads a definition file of run-time data in place of the tuning's own.

        `value_of(expression, is_text)` is asked for the value of each expression that the file has; None leaves the
        expression without one.
        """
        lines = _lines(_decoded(_read(path)))
        path = _library_path(path)
        values = {}
        self._call("GBrn_ReadRTDDefFromFile", path)
        while True:
            expression, is_text = self._call("GBrn_GetNextRTDExpr")
            if not expression:
                break
            value = value_of(expression, bool(is_text))
            if value is not None:
                values[expression] = str(value)
                self._call("GBrn_SetRTDExprValue", expression, values[expression])
        self._call("GBrn_UpdateDefaultValuesForExpressions", path)
        self._open_expressions = _open_expressions(lines, values.__contains__)

    # ---- Job data ----

    def set_job(self, *, date=None, time=None, inches=None, blank=None, final_position=None, rotary_radius=None,
                tile=None, tuning_name=None, drawing_name=None, output_name=None, material=None, dataset=None,
                tuning_pick=None):
        """Sets what the library should know about the job; what is None stays as it is.

        date, time: texts that the NC text shows, empty in a new session
        inches: whether the host's units are inches, for a tuning that takes its units from the host
        blank: size of the blank along X and Y, mm
        final_position: where the machine goes at the end, (x, y), mm; without it there is no final move
        rotary_radius: of the rotary axis, in the host's units: millimetres, or inches if they are set by now
        tile: other than 0, the main program alone is output, with its calls expanded
        tuning_name, drawing_name, output_name, material: names of files, for the NC text
        dataset: the dataset of run-time data to use, by default and if empty the first
        tuning_pick: the name under which the user's values of run-time data are stored
        """
        texts = {"Date": date, "Time": time, "TuningFileName": tuning_name, "FileName": drawing_name,
                 "OutputName": output_name, "MaterialFile": material, "DataSetName": dataset,
                 "TuneMenuPick": tuning_pick}
        for name, text in texts.items():
            if text is not None:
                self._call("GBrn_Set" + name, text)
        if inches is not None:
            self._call("GBrn_SetAutoUnitsToInches", inches)
        if rotary_radius is not None:
            self._call("GBrn_SetRotaryRadius", rotary_radius)
        if dataset is not None:
            self._dataset = dataset
        if blank is not None:
            self._call("GBrn_SetBlankSize", *_point(blank))
        if final_position is not None:
            self._call("GBrn_SetFinalPosition", *_point(final_position))
        if tile is not None:
            self._call("GBrn_SetTileToOutput", tile)

    # ---- Geometry ----

    def start_main(self, name, center=(0.0, 0.0), inside=False, horizontal=False):
        """Drops all geometry and starts the main program.

        `center` is that of the program's bounding box, mm. `inside` says that the job is seen from the inside of the
        board, `horizontal` that its grain is horizontal, for tunings that print them.
        """
        self._call("GBrn_StartMain", name, *_point(center), inside, horizontal)
        self._records = _Records(name)

    def start_sub(self, name, center=(0.0, 0.0), inside=False, horizontal=False):
        """Starts a sub-program, after the main program; add_call() places it."""
        self._call("GBrn_StartSub", name, *_point(center), inside, horizontal)
        self._records.start_sub(name)

    def add_line(self, tool, start, end, *, line_type=None, width=0.0, bridge_width=0.0, bridges=0):
        """Adds a line from `start` to `end`, mm. A program must have been started, as for all records.

        line_type: by default the number of the tool
        width: of the cut, mm
        bridge_width, bridges: width of a bridge, mm, and how many there are
        """
        self._need_program()
        self._call("GBrn_AddLine", tool, _type(line_type, tool), width, *_point(start), *_point(end), bridge_width,
                   bridges)
        self._records.add_cut(tool)

    def add_arc(self, tool, start, end, center, *, clockwise=False, line_type=None, width=0.0, bridge_width=0.0,
                bridges=0):
        """Adds an arc around `center`, mm; one that ends where it starts is a full circle."""
        self._need_program()
        start, center = ([_argument("d", value) for value in _point(point)] for point in (start, center))
        radius = math.dist(start, center)
        self._call("GBrn_AddArc", tool, _type(line_type, tool), width, *start, *_point(end), *center,
                   radius if clockwise else -radius, bridge_width, bridges)
        self._records.add_cut(tool)

    def add_text(self, tool, text, start, end, height, *, rotation=0.0, line_type=None):
        """Adds a text to the main program, from `start` to `end`, `height` mm high, rotated by `rotation` radians.

        While a sub-program is current it is dropped.
        """
        self._need_program()
        self._call("GBrn_AddText", tool, _type(line_type, tool), *_point(start), *_point(end), 0.0, rotation, 0.0, 0.0,
                   height, text)

    def add_call(self, name, at, center=(0.0, 0.0), *, rotation=0.0, mirror_x=False, mirror_y=False):
        """Adds a call of the sub-program `name`, placed at `at`, mm, and rotated by `rotation` radians.

        mirror_x negates x, mirror_y negates y. A call of a program that is not there gives no output.
        """
        self._need_program()
        self._call("GBrn_AddInclude", name, *_point(at), *_point(center), rotation, mirror_x, mirror_y)
        self._records.add_call(name)

    def _need_program(self):
        if not self._records.programs:
            raise BrindleError("a record before start_main() belongs to no program")

    def open_drawing(self, path):
        """Reads a CFF2 drawing in place of all programs; a record of it may set the host's units."""
        path = os.fspath(path)
        records = _records_of_drawing(_lines(_decoded(_read(path))))
        if records is None:
            raise InputError(f"{path}: holds no UR record, with which a CFF2 drawing starts")
        self._call("GBrn_SetFileName", _name(path))
        self._call("GBrn_OpenCF2File", _library_path(path))
        self._records = records

    # ---- Run ----

    def run(self, strict=False):
        """Runs the tuning over the geometry and gives the output, an NcText.

        The NC text is not held against the geometry, as the command `brindle post` does: that it cuts what was added
        is not checked. It may hold messages, if the tuning wants them there. With `strict` a run that has messages()
        raises RunError instead of giving its output. A dataset that the run-time data lacks raises ValueError.
        """
        self._end()
        nc = self._fetch()
        if strict:
            messages = self.messages()
            if messages:
                raise RunError(messages)
        return nc

    def messages(self):
        """The messages of a run over tuning and geometry as they are, in order.

        First what a run leaves out in silence: lines of the tuning that it drops, lines and arcs of a tool that the
        tuning lacks, calls of a program that is not there, the values of expressions that a template needs. Then what
        the library reports, such as `Could not evaluate: @Foo`. Lines of a definition or drawing that can't be
        understood are not reported.

        The library reports messages in NC text only. So this is a run of its own, with a tuning that writes them there,
        and takes about as long as run().
        """
        silent = self._silent_messages()
        settings = ["BOOL bErrorsAsComments true", "TEXT sOpenComment " + _MESSAGE_OPENER,
                    "TEXT sCloseComment " + _MESSAGE_CLOSER]
        for line in settings:
            self._call("GBrn_ReadTuneLineIgnoreRTDDefs", line)
        try:
            self._end()
            pieces = [piece for pieces in self._buffers() for piece in pieces]
        finally:
            self._call("GBrn_ClearTuning")
            for line in self._item_lines:
                self._call("GBrn_ReadTuneLineIgnoreRTDDefs", line)
        opener = len(_MESSAGE_OPENER)
        return silent + [piece[opener:].rpartition(_MESSAGE_CLOSER)[0] for piece in pieces
                         if piece.startswith(_MESSAGE_OPENER)]

    def _end(self):
        if self._dataset and self._dataset not in (datasets := self._datasets()):
            others = "; there are " + ", ".join(map(repr, datasets)) if datasets else ", nor any other"
            raise ValueError(f"there is no dataset {self._dataset!r}{others}")
        # A run leaves the name of the dataset that it used, and that could be one of the tuning before.
        self._call("GBrn_SetDataSetName", self._dataset)
        self._call("GBrn_End")

    def _datasets(self):
        lines = self.tuning().split("\n")
        return [line.removeprefix("DATASETDEF ") for line in lines if line.startswith("DATASETDEF ")]

    def _silent_messages(self):
        items = [line for line in self.tuning().split("\n") if line.split(" ", 1)[0] not in _DEFINITION_WORDS]
        values = dict(line.rstrip().rsplit(maxsplit=1) for line in items if re.match("(INT|BOOL) ", line))
        messages = list(self._dropped_lines)
        if values.get("BOOL bDefaultTool") != "true":
            last = int(values.get("INT  nNumOfTools", 0))
            messages += [f"tool {tool} is not in the tuning: {_counted(count, 'record')} ignored"
                         for tool, count in sorted(self._records.tools.items()) if not 0 <= tool <= last]
        messages += [f"program {name!r} is not there: {_counted(count, 'call')} ignored"
                     for name, count in self._records.calls.items() if name not in self._records.programs]
        dataset = self._dataset or next(iter(self._datasets()), "")
        messages += [f"expression {expression!r} of {word} has no value"
                     for word, expression in self._open_expressions.get(dataset, {}).items()
                     if expression and any(word in line for line in items)]
        return messages

    def _buffers(self):
        """The pieces of each buffer, a list each."""
        more, text = ctypes.c_int(), ctypes.c_void_p()
        for number in range(1, self._call("GBrn_GetNumOfBuffers") + 1):
            self._call("GBrn_SetCurBuffer", number)
            pieces = []
            # There may be millions of pieces, so this does by hand what _call() does.
            while not self._library.GBrn_CurBufferHasMoreData(more) and more.value:
                self._library.GBrn_GetOutputBuffer(text)
                pieces.append(self._taken(text.value))
            yield pieces

    def _fetch(self):
        segments, dwells = [], []
        for pieces in self._buffers():
            marked = [piece for piece in pieces if piece.startswith(self._dwell_marker)]
            dwells += [piece.removeprefix(self._dwell_marker).removesuffix("]").strip() for piece in marked]
            segments.append("".join(piece for piece in pieces if not piece.startswith(self._dwell_marker)))
        return NcText(segments or [""], dwells)

    # ---- Library ----

    def _call(self, name, *arguments):
        """Calls an export and gives its result, several as a tuple."""
        if self._library is None:
            raise BrindleError("the Host is closed")
        signature = _EXPORTS[name]
        results = [_RESULT_TYPES[code]() for code in signature if code in _RESULT_TYPES]
        codes = [code for code in signature if code in _ARGUMENT_TYPES]
        given = [_argument(code, value) for code, value in zip(codes, arguments, strict=True)]
        getattr(self._library, name)(*given, *map(ctypes.byref, results))
        values = [self._taken(r.value) if isinstance(r, ctypes.c_void_p) else r.value for r in results]
        return values[0] if len(values) == 1 else tuple(values)

    def _taken(self, address):
        """The text of a string that the library gave us, which then is freed."""
        try:
            return ctypes.wstring_at(address, self._library.SysStringLen(address)) if address else ""
        finally:
            self._library.SysFreeString(address)


def _type(line_type, tool):
    return tool if line_type is None else line_type


# ---- Findings ----


def check(tuning, drawing=None, command=None):
    """What is wrong with a tuning, and what a run of it over a drawing would lose: a list of dictionaries.

    Each has `file`, `line`, `column`, `end_column` (characters from 1, the end is the one after the last), `severity`
    ("error", "loss", "warning" or "info"), `rule`, `message`, `help` and `related`, a list of places with `message`;
    what there is not is None. This is `brindle check --format json`: the command is the one given, that of the
    environment variable BRINDLE_COMMAND, or the `brindle` on the path.
    """
    command = command or os.environ.get("BRINDLE_COMMAND") or "brindle"
    files = [os.fspath(path) for path in (tuning, drawing) if path is not None]
    try:
        run = subprocess.run([os.fspath(command), "check", "--format", "json", "--", *files], capture_output=True,
                             check=False)
        return json.loads(run.stdout)
    except OSError as error:
        raise BrindleError(f"the command {command} can't be run: {error.strerror}") from error
    except ValueError as error:
        raise BrindleError(_decoded(run.stderr).strip() or f"{command} gave no findings") from error


# ---- NC files ----


def write_nc(path, segments, encoding="utf-8"):
    """Writes the segments of NC text into files, all of them or none, and gives their paths.

    One segment goes to `path`; several are numbered before its extension: box-1.nc, box-2.nc. Files that are there are
    replaced. A character that `encoding` lacks raises UnicodeEncodeError, what can't be written OSError.
    """
    stem, extension = os.path.splitext(os.fspath(path))
    folder_given = os.path.dirname(stem)
    if folder_given and not os.path.isdir(folder_given):
        code = errno.ENOTDIR if os.path.exists(folder_given) else errno.ENOENT
        raise OSError(code, os.strerror(code), folder_given)
    paths = [f"{stem}-{number}{extension}" for number in range(1, len(segments) + 1)]
    if len(segments) == 1:
        paths = [os.fspath(path)]
    with tempfile.TemporaryDirectory(prefix=".brindle-", dir=folder_given or ".") as folder:
        parts = [os.path.join(folder, str(number)) for number in range(len(segments))]
        for part, segment in zip(parts, segments):
            with open(part, "wb") as file:
                file.write(segment.encode(encoding))
        for done, (part, target) in enumerate(zip(parts, paths)):
            try:
                os.replace(part, target)
            except OSError:
                for other in paths[:done]:
                    os.unlink(other)
                raise
    return paths
