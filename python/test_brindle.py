"""Tests of brindle.py and of its examples, against what the command makes. The environment has BRINDLE_LIBRARY, the
library, and BRINDLE, the command."""
import math
import multiprocessing
import os
import pathlib
import pty
import re
import subprocess
import sys
import tempfile
import unittest

import brindle

SOURCES = pathlib.Path(__file__).resolve().parent.parent
EXAMPLES = SOURCES / "examples"
COMMAND = os.environ["BRINDLE"]

PLAIN = """INT nNumOfTools 2
TEXT sAx1Addr X
TEXT sAx2Addr Y
TEXT sCenAx1Addr I
TEXT sCenAx2Addr J
TEXT sCWCode G2
TEXT sCCWCode G3
BOOL bUseSubs true
BOOL bUseText true
BOOL bOutModeAbs true
BOOL bOutUnitsAuto true
MULTI Move_tTmpl NNUL G0<@StartPtWords>
MULTI Line_tTmpl NNUL G1<@EndPtWords>
MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@ArcDataWords>
MULTI Text_tTmpl NNUL <@TextDataWord>!#SP#!<@TextRotWord>!#SP#!<@TextHgtWord>
MULTI MainInit_tTmpl NNUL <@CADFile>|<@OutputFile>|<@TuneFile>|<@Date>|<@Time>|<@MaterialFile>|<@TuneMenuPick>
MULTI MainTerm_tTmpl NNUL <@BlankX>|<@BlankY>|<@RotaryRadius>
MULTI SubCall_tTmpl NNUL CALL<@SubProgNum>
"""


def fork_makes_host(_):
    with brindle.Host() as host:
        host.read_tuning("MULTI FileStart_tTmpl NNUL child")
        return host.run().text


class Case(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def file(self, name, content):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def by_command(self, tuning, drawing, *arguments):
        """The NC file that the command makes, whether or not it cuts all that is drawn."""
        command = [COMMAND, "post", "-t", tuning, "-o", "-", "--date", "D", "--time", "T", "--output-name", ""]
        run = subprocess.run([*command, *arguments, drawing], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                             check=False)
        self.assertIn(run.returncode, (0, 3), run.stderr)
        return run.stdout

    def host(self):
        host = brindle.Host()
        self.addCleanup(host.close)
        return host

    def host_with(self, tuning):
        host = self.host()
        host.read_tuning(tuning)
        return host


class Library(Case):
    def test_declarations_are_those_of_the_header(self):
        codes = {"short": "h", "int": "i", "double": "d", "const wchar_t*": "t", "wchar_t**": "T", "short*": "H",
                 "int*": "I", "void": ""}
        header = (SOURCES / "include/brindle/brindle.h").read_text()
        declared = {}
        for name, arguments in re.findall(r"BRINDLE_API int (\w+)\(([^)]*)\);", header):
            types = [re.sub(r" \w+$", "", " ".join(argument.split())) for argument in arguments.split(",")]
            declared[name] = "".join(codes[text] for text in types)
        self.assertEqual(len(declared), 46)
        self.assertEqual(brindle._EXPORTS, {name: declared.get(name) for name in brindle._EXPORTS})

    def test_missing_or_other_library(self):
        for path in ("none.so", self.file("no_library.so", "text"), "libm.so.6"):
            with self.assertRaises(brindle.LibraryMissing):
                brindle.Host(path)
        self.host()  # the process has no host yet

    def test_one_host_in_a_process(self):
        with brindle.Host() as host:
            with self.assertRaises(brindle.HostInUse):
                brindle.Host()
            with multiprocessing.get_context("fork").Pool(1) as pool:
                self.assertEqual(pool.map(fork_makes_host, [0]), ["child\r\n"])
            self.assertEqual(host.run().text, "")
        with self.assertRaises(brindle.BrindleError):
            host.run()
        host.close()
        self.host()


class Jobs(Case):
    def test_examples_are_those_of_the_command(self):
        for tuning, drawing in [("laser_mm", "plate"), ("laser_inc_radius", "folding_box"),
                                ("plotter_hpgl", "engraving"), ("knife_tangential", "knife_sheet"), ("subs_mirror", "nested_sheet"),
                                ("engraver_text", "engraving"), ("plotter_hpgl", "large")]:
            tuning, drawing = EXAMPLES / tuning / (tuning + ".tun"), EXAMPLES / "drawings" / (drawing + ".cf2")
            with self.subTest(tuning=tuning, drawing=drawing), brindle.Host() as host:
                host.load_tuning(tuning)
                host.set_job(date="D", time="T")
                host.open_drawing(drawing)
                self.assertEqual(host.run().text.encode(), self.by_command(tuning, drawing))

    def test_geometry_goes_the_way_of_a_drawing(self):
        drawing = self.file("part.cf2", "MAIN,PART\nLL,0,0\nUR,60,40\n"
                                        "L,0.7,1,0,1,2,3,4,2,5\nA,0.7,2,0,10,0,0,10,0,0,-10,0,0\n"
                                        "A,0.7,1,0,20,5,20,5,15,5,5,0,0\nC,INNER,30,20,1.5707963267948966,1,0\n"
                                        "SUB,INNER\nL,0.7,2,0,0,0,5,1,0,0\n")
        tuning = self.file("plain.tun", PLAIN)
        for expand in ([], ["--tile", "1"]):
            with self.subTest(expand), brindle.Host() as host:
                host.load_tuning(tuning)
                host.set_job(date="D", time="T", drawing_name="part.cf2", tile=len(expand) // 2)
                host.start_main("PART", (30, 20))
                host.add_line(1, (1, 2), (3, 4), width=0.7, bridges=2, bridge_width=5)
                host.add_arc(2, (10, 0), (0, 10), (0, 0), width=0.7)
                host.add_arc(1, (20, 5), (20, 5), (15, 5), clockwise=True, width=0.7)
                host.add_call("INNER", (30, 20), (2.5, 2.5), rotation=math.pi / 2, mirror_x=True)
                host.start_sub("INNER", (2.5, 2.5))
                host.add_line(2, (0, 0), (5, 1), width=0.7)
                self.assertEqual(host.run().text.encode(), self.by_command(tuning, drawing, *expand))

    def test_job_data(self):
        drawing = self.file("in.cf2", "UR,9,9\nUI,x\nL,0.5,1,0,0,0,1,2,0,0\n")
        tuning = self.file("plain.tun", PLAIN)
        host = self.host()
        host.load_tuning(tuning)
        host.open_drawing(drawing)
        host.set_job(date="D", time="T", inches=False, rotary_radius=20, blank=(300, 200.5), final_position=(-5, 7.5),
                     tuning_name="A", drawing_name="B", material="M \u20ac", tuning_pick="P")
        self.assertEqual(host.run().text.encode(), self.by_command(
            tuning, drawing, "--mm", "--rotary-radius", "20", "--blank", "300x200.5", "--final=-5,7.5", "--tuning-name",
            "A", "--drawing-name", "B", "--material", "M \u20ac", "--tune-pick", "P"))

    def test_text(self):
        host = self.host_with(PLAIN)
        host.start_main("MAIN")
        host.add_text(1, "LABEL \u00e4", (1, 2), (30, 2), 5.0, rotation=0.1)
        self.assertIn("LABEL \u00e4 5.73 5.000\r\n", host.run().text)

    def test_run_time_data(self):
        definition = ("ROW TEXT Cut\nCOL TEXT Feed\nMSG TEXT Name\nDATASETDEF Steel\nDATASETDEF Card\n"
                      "DSD Steel R_EXPR RTD(1,1) 2*A\nDSD Steel T_EXPR RTD(1) B\nDSD Card TEXT RTD(1,1) 7\n")
        template = "MULTI FileStart_tTmpl NNUL <@DataSetName>|<RTD(1,1)>|<RTD(1)>\n"
        host = self.host()
        host.read_tuning(definition + template, {"2*A": 8, "B": "me"})
        self.assertEqual(host.run().text, "Steel|8|me\r\n")
        host.set_job(dataset="Card")
        self.assertTrue(host.run().text.startswith("Card|7|"))
        host.set_job(dataset="Steel")
        asked = []
        host.load_run_time_data(self.file("rtd", definition), lambda *question: asked.append(question) or len(asked))
        self.assertEqual(asked, [("2*A", False), ("B", True)])
        self.assertEqual(host.run().text, "Steel|1|2\r\n")
        self.assertEqual(host.messages(), [])
        host.load_run_time_data(self.file("rtd", definition.replace("Card", "Wood")), lambda *_: None)
        self.assertEqual(host.messages(), ["expression '2*A' of RTD(1,1) has no value",
                                           "expression 'B' of RTD(1) has no value"])
        self.assertEqual(host.run().text, "Steel||\r\n")
        self.assertNotIn("DATASETDEF Card", host.tuning())

    def test_second_tuning(self):
        first = "UPD 2030_01_01_00_00_00\nROW TEXT Cut\nDATASETDEF Card\nDATASETDEF Steel\nDSD Card TEXT RTD(1) 5\n"
        second = "ROW TEXT Other\nDATASETDEF Wood\nDATASETDEF Card\nMULTI FileStart_tTmpl NNUL <@DataSetName>\n"
        host = self.host_with(first)
        host.run()
        host.read_tuning(second)
        self.assertEqual(host.messages(), [])
        self.assertEqual(host.run().text, "Wood\r\n")
        with_first_before = host.tuning()
        host.close()
        self.assertEqual(with_first_before, self.host_with(second).tuning())

    def test_unknown_dataset(self):
        host = self.host_with("DATASETDEF Steel\nDATASETDEF Card\nMULTI FileStart_tTmpl NNUL <@DataSetName>\n")
        for dataset, text in [("Card", "Card\r\n"), ("", "Steel\r\n")]:
            host.set_job(dataset=dataset)
            self.assertEqual(host.run().text, text)
        host.set_job(dataset="card")
        with self.assertRaisesRegex(ValueError, "no dataset 'card'; there are 'Steel', 'Card'"):
            host.run()
        host.read_tuning(PLAIN)
        with self.assertRaisesRegex(ValueError, "nor any other"):
            host.messages()

    def test_segments_dwells_and_bytes(self):
        tuning = self.file("bytes.tun", b"\xef\xbb\xbfMULTI FileStart_tTmpl NNUL \xe9\xc3\xa4<@IODwell[1.5]>chr(0)\r\n"
                                        b"BOOL bUseFileSeg true\r\nINT nMaxBytes 20\r\nINT nNumOfTools 1\r\n"
                                        b"MULTI Line_tTmpl NNUL 0123456789")
        drawing = self.file("two.cf2", "UR,9,9\n" + 2 * "L,0.5,1,0,0,0,1,1,0,0\n")
        host = self.host()
        host.load_tuning(tuning)
        host.open_drawing(drawing)
        nc = host.run()
        self.assertEqual(len(nc.segments), 2)
        self.assertEqual(nc.text.encode(), self.by_command(tuning, drawing))
        self.assertTrue(nc.text.startswith("\u00e9\u00e4\0"), nc.text)
        self.assertEqual(nc.dwells, ["1.5", "1.5"])

    def test_messages(self):
        host = self.host_with("TEXT sOpenComment (\nREAL rDefRotRadiusMM 1.23456789012\nINT nNumOfTools 1\n"
                              "MULTI FileStart_tTmpl NNUL A<@Foo><RTD(1,2)>\n")
        tuning = host.tuning()
        self.assertEqual(host.messages(), ["Could not evaluate: @Foo", "Could not evaluate: RTD(1,2)"])
        self.assertEqual(host.tuning(), tuning)
        self.assertEqual(host.run().text, "A\r\n")
        with self.assertRaises(brindle.RunError) as raised:
            host.run(strict=True)
        self.assertEqual(raised.exception.messages, ["Could not evaluate: @Foo", "Could not evaluate: RTD(1,2)"])
        host.read_tuning("MULTI FileStart_tTmpl NNUL B\n")
        self.assertEqual(host.run(strict=True).text, "B\r\n")

    def test_what_is_left_out_in_silence(self):
        definition = ("DATASETDEF Steel\nDSD Steel T_EXPR RTD(1) B\nDSD Steel T_EXPR RTD(2) 1.5\n"
                      "DSD Steel R_EXPR RTD(3) C\nDATASETDEF Card\nDSD Card T_EXPR RTD(1) D\n"
                      "MULTI FileStart_tTmpl NNUL <RTD(1)><RTD(2)>\n")
        drawing = self.file("part.cf2", "MAIN,A\nUR,9,9\nL,1,3,0,0,0,1,1,0,0\nL,1,-1,0,0,0,1,1,0,0\nC,B,0,0,0,0,0\n"
                                        "C,C,0,0,0,0,0\nT,1,1,0,0,0,0,1,0\nL,1,4,0,0,0,1,1,0,0\nSUB,C\n"
                                        "A,1,3,0,0,0,1,1,1,0,1,0,0\nL,1,2,0,0,0,1,1,0,0\nC,B,0,0,0,0,0\n")
        host = self.host_with(PLAIN + definition)
        with self.assertRaisesRegex(brindle.BrindleError, "before start_main"):
            host.add_line(3, (0, 0), (1, 1))
        self.assertEqual(host.messages(), ["expression 'B' of RTD(1) has no value"])
        expected = ["tool -1 is not in the tuning: 1 record ignored", "tool 3 is not in the tuning: 2 records ignored",
                    "program 'B' is not there: 2 calls ignored"]
        host.read_tuning(PLAIN + definition, {"B": ""})
        host.start_main("A")
        for tool in (3, -1, 2):
            host.add_line(tool, (0, 0), (1, 1))
        for name in "BCB":
            host.add_call(name, (0, 0))
        host.start_sub("C")
        host.add_arc(3, (0, 0), (1, 1), (1, 0))
        self.assertEqual(host.messages()[:3], expected)
        host.open_drawing(drawing)
        self.assertEqual(host.messages()[:3], expected)
        host.read_tuning(PLAIN + "BOOL bDefaultTool true\n")
        host.start_main("A")
        host.add_line(3, (0, 0), (1, 1))
        self.assertEqual(host.run(strict=True).text.count("G1"), 1)


class Findings(Case):
    def test_dropped_lines_are_strict(self):
        host = self.host_with(PLAIN + "BOOL bUseSpace\nBOL bUseSpace true\n\nMULTI Fly_PreCheck_tTmpl\n")
        host.start_main("A")
        number = PLAIN.count("\n") + 1
        expected = [f"tuning:{number}: the line has too few words and is dropped",
                    f"tuning:{number + 1}: unknown type word 'BOL': the line is dropped"]
        self.assertEqual(host.messages(), expected)
        with self.assertRaisesRegex(brindle.RunError, "unknown type word 'BOL'"):
            host.run(strict=True)
        host.read_tuning(PLAIN)
        host.run(strict=True)

    def test_check(self):
        tuning = self.file("a.tun", PLAIN + "BOOL bUseSpac true\n")
        drawing = self.file("a.cf2", "UR,9,9\nL,1,9,0,0,0,1,1,0,0\n")
        rules = {(finding["rule"], finding["line"], finding["severity"])
                 for finding in brindle.check(tuning, drawing, COMMAND)}
        self.assertLessEqual({("unknown-key", PLAIN.count("\n") + 1, "warning"), ("unknown-tool", 2, "warning")}, rules)
        self.assertNotIn("unknown-tool", {finding["rule"] for finding in brindle.check(tuning, command=COMMAND)})
        missing = brindle.check(self.folder / "none.tun", command=COMMAND)
        self.assertEqual([(finding["severity"], finding["rule"]) for finding in missing], [("error", None)])
        with self.assertRaisesRegex(brindle.BrindleError, "can't be run"):
            brindle.check(tuning, command=self.folder / "nonesuch")

    def test_a_missing_folder_is_named_as_given(self):
        with self.assertRaises(OSError) as raised:
            brindle.write_nc(self.folder / "none" / "box.nc", ["A"])
        self.assertEqual(raised.exception.filename, str(self.folder / "none"))


class BadInput(Case):
    def test_files(self):
        host = self.host()
        nul = self.file("nul.tun", b"INT nNumOfTools 1\nTEXT s\0x y\n")
        letter = self.file("letter.cf2", "Dear Sir,\n")
        for call, path, text in [(host.load_tuning, self.folder / "none.tun", "No such file"),
                                 (host.load_tuning, nul, "nul.tun:2: the line holds a NUL"),
                                 (host.open_drawing, self.folder, "Is a directory"),
                                 (host.open_drawing, letter, "letter.cf2: holds no UR record")]:
            with self.assertRaisesRegex(brindle.InputError, text):
                call(path)
        odd = os.fsencode(self.folder) + b"/\xe9.cf2"
        with open(odd, "wb") as file:
            file.write(b"UR,1,1\n")
        with self.assertRaisesRegex(brindle.InputError, "not UTF-8"):
            host.open_drawing(os.fsdecode(odd))

    def test_arguments(self):
        host = self.host()
        host.start_main("MAIN")
        for error, text, call in [
                (ValueError, "16 bits: 70000", lambda: host.add_line(70000, (0, 0), (1, 1))),
                (ValueError, "whole number of 16 bits: 1.7", lambda: host.add_line(1.7, (0, 0), (1, 1))),
                (TypeError, "not a number: '1'", lambda: host.add_line("1", (0, 0), (1, 1))),
                (ValueError, "finite", lambda: host.add_line(1, (math.nan, 0), (1, 1))),
                (ValueError, "finite", lambda: host.add_arc(1, (0, 0), (1, math.inf), (0, 0))),
                (ValueError, r"pair \(x, y\): \(0, 0, 0\)", lambda: host.add_line(1, (0, 0, 0), (1, 1))),
                (ValueError, r"pair \(x, y\): \(0,\)", lambda: host.add_arc(1, (0, 0), (1, 1), (0,))),
                (TypeError, r"pair \(x, y\): 5", lambda: host.set_job(blank=5)),
                (ValueError, "NUL", lambda: host.set_job(material="a\0b")),
                (TypeError, "not a text: 7", lambda: host.set_job(dataset=7))]:
            with self.assertRaisesRegex(error, text):
                call()
        self.assertEqual(host.messages(), [])


class NcFiles(Case):
    def test_names_and_replacement(self):
        path = self.file("box.nc", "old")
        self.assertEqual(brindle.write_nc(path, ["A\r\n"]), [str(path)])
        self.assertEqual(path.read_bytes(), b"A\r\n")
        two = brindle.write_nc(path, ["A", "\u00e4"], encoding="latin1")
        self.assertEqual(two, [str(self.folder / "box-1.nc"), str(self.folder / "box-2.nc")])
        self.assertEqual((self.folder / "box-2.nc").read_bytes(), b"\xe4")

    def test_all_or_none(self):
        (self.folder / "box-2.nc").mkdir()
        with self.assertRaises(OSError):
            brindle.write_nc(self.folder / "box.nc", ["A", "B"])
        with self.assertRaises(UnicodeEncodeError):
            brindle.write_nc(self.folder / "lid.nc", ["\u20ac"], encoding="latin1")
        self.assertEqual(os.listdir(self.folder), ["box-2.nc"])


class Examples(Case):
    def example(self, name, *arguments, **options):
        return subprocess.run([sys.executable, "-B", EXAMPLES / "python" / name, *arguments], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, check=False, **options)

    def test_shapes_to_nc(self):
        tuning = EXAMPLES / "laser_mm/laser_mm.tun"
        output = self.folder / "card.nc"
        self.assertEqual(self.example("shapes_to_nc.py", tuning, output).returncode, 0)
        printed = self.example("shapes_to_nc.py", tuning)
        self.assertEqual(printed.stdout.splitlines()[2:], output.read_bytes().splitlines()[2:])
        self.assertEqual(len(re.findall(rb" G[23] ", printed.stdout)), 6, printed.stdout)  # two holes, four corners
        self.assertEqual(self.example("shapes_to_nc.py", self.folder / "none.tun").returncode, 1)
        self.assertEqual(self.example("shapes_to_nc.py").returncode, 2)

    def test_post_folder(self):
        tuning = EXAMPLES / "plotter_hpgl/plotter_hpgl.tun"
        drawings, output = self.folder / "drawings", self.folder / "nc"
        drawings.mkdir()
        for name in ("plate", "engraving", "folding_box"):
            (drawings / (name + ".cf2")).write_bytes((EXAMPLES / "drawings" / (name + ".cf2")).read_bytes())
        good = self.example("post_folder.py", tuning, drawings, output)
        self.assertEqual((good.returncode, good.stderr), (0, b""))
        for drawing in drawings.iterdir():
            self.assertEqual((output / (drawing.stem + ".nc")).read_bytes(), self.by_command(tuning, drawing))
        (drawings / "letter.cf2").write_text("Dear Sir,\n")
        (drawings / "plate.cf2").write_text("UR,1,1\n")
        (output / "plate.nc").unlink()
        (output / "plate.nc").mkdir()
        bad = self.example("post_folder.py", tuning, drawings, output)
        self.assertEqual(bad.returncode, 1)
        self.assertRegex(bad.stderr.decode(), r"letter.cf2: holds no UR record.*\n.*plate.cf2: .*Is a directory")
        self.assertEqual(len(os.listdir(output)), 3, "a half-written file is left")
        (drawings / "plate.cf2").write_text("UR,1,1\nL,1,9,0,0,0,1,1,0,0\n")
        (output / "plate.nc").rmdir()
        laser = EXAMPLES / "laser_mm/laser_mm.tun"
        told = self.example("post_folder.py", laser, drawings, output).stderr.decode()
        self.assertIn("plate.cf2: warning: tool 9 is not in the tuning: 1 record ignored", told)
        nowhere = self.example("post_folder.py", self.folder / "none.tun", drawings, self.folder / "other")
        self.assertEqual((nowhere.returncode, nowhere.stderr.count(b"\n"), nowhere.stderr.count(b"No such file")),
                         (1, 1, 1), nowhere.stderr)

    def test_progress_is_for_terminals(self):
        (self.folder / "a.cf2").write_text("UR,1,1\nL,0.5,1,0,0,0,1,1,0,0\n")
        ours, theirs = pty.openpty()
        with os.fdopen(ours, "rb", buffering=0) as terminal:
            subprocess.run([sys.executable, "-B", EXAMPLES / "python/post_folder.py",
                            EXAMPLES / "plotter_hpgl/plotter_hpgl.tun", self.folder, self.folder / "nc"], stderr=theirs,
                           check=True)
            os.close(theirs)
            self.assertIn(b"0 of 1 drawings done", terminal.read(1000))


if __name__ == "__main__":
    unittest.main()
