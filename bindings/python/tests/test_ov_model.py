"""The package on the sample device. OV_MODEL_TEST_DATABASE names its packed descriptor."""

import csv
import datetime
import gc
import os
import pathlib
import subprocess
import sys
import threading
import unittest
import unittest.mock
import weakref
from decimal import Decimal

import ov_model
from ov_model import contract

ROOT = pathlib.Path(__file__).resolve().parents[3]
DATABASE = os.environ["OV_MODEL_TEST_DATABASE"]


class Listener:
    def __init__(self, failure=None):
        self.heard = []
        self.failure = failure

    def OnParameterValueChanged(self, p):
        self.heard.append((p.name(), p.value))
        if self.failure:
            raise self.failure


class DeviceTest(unittest.TestCase):
    def setUp(self):
        ov_model.set_locale("en-US")
        self.module = ov_model.create("CBase_Module")
        self.module.SetSourcePath(DATABASE)
        self.module.SetLanguage(9)
        self.assertIs(self.module.Load("TT200 HART"), True)
        self.addCleanup(self.module.Unload)
        self.group = self.module.Spec().channels()["0"].groups()["12"]
        self.parameter = self.group.parameters()["1201"]

    def test_values_come_back_as_they_went_in(self):
        parameter = self.parameter
        moment = datetime.datetime
        for value in [None, ov_model.Null, True, 0, -2**31, 0.1, "", "ä\0😀", Decimal("-1.250"), Decimal(2**96 - 1),
                      ov_model.Currency("-12.3456"), moment(2026, 1, 2, 23, 59, 59), moment(1899, 12, 29, 6),
                      moment(101, 1, 1, 12, 0, 1), bytearray(b"\0\xff"), bytearray(), [], [1, ["x", [None]], b"a"],
                      parameter, self.module]:
            parameter.tag = value
            back = parameter.tag
            self.assertEqual(back, value)
            self.assertIs(type(back), type(value))
        for value, back in [(2**31, Decimal(2**31)), (b"ab", bytearray(b"ab")), ((1, 2), [1, 2]),
                            (ov_model.Empty, None),
                            (datetime.date(2026, 1, 2), moment(2026, 1, 2)), (ov_model.ErrorCode(13), 13),
                            (Decimal("1e3"), Decimal(1000)), (ov_model.eParamKindDiagnosis, 16),
                            (Decimal("0." + "3" * 40), Decimal("0." + "3" * 28)), (ov_model.ByRef("x"), "x"),
                            (Decimal("79228162514264337593543950334.5"), Decimal(2**96 - 2))]:
            parameter.tag = value
            self.assertEqual(parameter.tag, back)
        evaluate = self.group.EvaluateScript
        self.assertEqual(evaluate("Array(Null, Empty, CByte(7), #2026-01-02#)"),
                         [ov_model.Null, None, 7, moment(2026, 1, 2)])

    def test_values_that_the_library_does_not_have(self):
        utc = datetime.timezone.utc
        for value, error in [(object(), TypeError), ({}, TypeError), (2**96, OverflowError), (len, TypeError),
                             (Decimal("NaN"), ValueError), (Decimal("1e29"), OverflowError),
                             (ov_model.Currency(10**15), OverflowError), (datetime.datetime.now(utc), ValueError)]:
            with self.assertRaises(error, msg=repr(value)):
                self.parameter.tag = value
        loop = []
        loop.append(loop)
        with self.assertRaises(RecursionError):
            self.parameter.tag = loop

    def test_members_by_name(self):
        gui = self.parameter.Gui()
        gui.VALUE = "5"
        self.assertEqual((gui.value, gui.Value, self.parameter.value), ("5", "5", 5))
        self.assertEqual(gui, self.parameter)
        self.assertEqual(len({gui, self.parameter, self.module, self.module.Spec()}), 2)
        self.assertEqual(repr(gui), "<CBase_ParameterInt as IBase_GuiParameter>")
        self.assertLessEqual({"value", "RegisterCallback", "__eq__"}, set(dir(gui)))
        storage = ov_model.facet(gui, contract.IBase_SpecParameterStorage)
        storage.realvalueForStorage = "6"
        self.assertEqual(storage.realvalueForStorage, "6")
        environment = self.module.Spec().Environment()
        environment.Variable["USER"] = "me"
        self.assertEqual((environment.Variable("user"), environment.Variable["User"]), ("me", "me"))
        self.assertIs(self.module.Gui().consistent(ov_model.eParamKindDeviceParam), True)
        self.assertEqual(self.module.GetModuleType(ov_model.Missing), "TT200 HART")
        self.assertEqual(self.module.Spec().fdtDeviceTypeInformation().version.vendor, "Orvane")
        for act in [lambda: gui.Nonsense, lambda: setattr(gui, "Nonsense", 1), lambda: setattr(gui, "name", "x")]:
            self.assertRaises(AttributeError, act)
        self.assertRaises(TypeError, ov_model.Object)
        self.assertRaises(TypeError, ov_model.facet, 5, "IBase_GuiParameter")
        self.assertRaises(TypeError, len, gui)

    def test_collections(self):
        channels = self.module.Gui().channels()
        self.assertEqual([channel.id() for channel in channels], [0, 1, 2])
        self.assertEqual((len(channels), channels[1].name(), channels("2").id()), (3, "Sensor 1", 2))
        self.assertTrue("1" in channels and "7" not in channels)
        self.assertRaises(KeyError, lambda: channels["7"])
        self.assertIsNone(channels.Item("7"))
        row = self.group.desc()
        self.assertEqual(row["GROUPTYPE"], 12)
        self.assertTrue("GroupType" in row and "nowhere" not in row and 1 in row and 1000 not in row)
        self.assertRaises(KeyError, lambda: row["nowhere"])
        own = ov_model.create("CBase_GuiChannelCollection")
        own["a"] = channels["1"]
        own["b"] = channels["2"]
        del own["a"]
        self.assertEqual([channel.id() for channel in own], [2])
        own.Clear()
        self.assertFalse(own)

    def test_errors(self):
        for number, act in [(450, self.module.Load), (13, lambda: self.module.SetLanguage("nine")),
                            (429, lambda: ov_model.create("CBase_Nothing")),
                            (430, lambda: ov_model.facet(self.module, "IBase_GuiParameter")),
                            (5, lambda: ov_model.set_locale("nowhere-at-all"))]:
            with self.assertRaises(ov_model.RuntimeError) as caught:
                act()
            self.assertEqual(caught.exception.number, number)
            self.assertTrue(caught.exception.description)
            if number == 429:
                self.assertIn("'CBase_Nothing'", str(caught.exception))
            self.assertIn(str(number), str(caught.exception))
        self.assertTrue(issubclass(ov_model.RuntimeError, RuntimeError))

    def test_listeners_hear_and_end(self):
        listener = Listener()
        self.module.Gui().RegisterCallback(listener)
        gui = self.parameter.Gui()
        gui.value = "5"
        self.assertEqual(listener.heard, [("Polling address", "5")])
        self.module.Gui().UnregisterCallback(listener)
        gui.value = "6"
        self.assertEqual(len(listener.heard), 1)
        ended = weakref.ref(listener)
        self.parameter.tag = listener
        self.assertIs(self.parameter.tag, listener)
        del listener
        gc.collect()
        self.assertIsNotNone(ended())
        self.parameter.tag = None
        gc.collect()
        self.assertIsNone(ended())

    def test_what_listeners_raise_reaches_who_caused_the_event(self):
        gui = self.parameter.Gui()
        for value, failure, number in [("1", ValueError("no"), 51),
                                       ("2", ov_model.RuntimeError(1234, "why", "who"), 1234)]:
            listener = Listener(failure)
            gui.RegisterCallback(listener)
            with self.assertRaises(ov_model.RuntimeError) as caught:
                gui.value = value
            self.assertEqual(caught.exception.number, number)
            self.assertIs(caught.exception.__cause__, failure)
            gui.UnregisterCallback(listener)
        # Through this facet the library only logs what listeners raise.
        for value, failure in [(8, ValueError("no")), (9, KeyboardInterrupt())]:
            listener = Listener(failure)
            gui.RegisterCallback(listener)
            with unittest.mock.patch("sys.excepthook") as hook:
                try:
                    self.parameter.value = value
                except KeyboardInterrupt as raised:
                    self.assertIs(raised, failure)
                else:
                    self.assertIs(hook.call_args.args[1], failure)
            gui.UnregisterCallback(listener)
        self.assertEqual(gui.value, "9")

    def test_services_and_sinks(self):
        class Service:
            @ov_model.by_reference
            def DoExport(self, module, data, source):
                data.value = [module.value.Gui().name(), data.value]
                return True

        spec = self.module.Spec()
        spec.RegisterImExport(Service())
        data = ov_model.ByRef(7)
        self.assertIs(spec.Export(data, 1), True)
        self.assertEqual(data.value, ["TT200 temperature transmitter HART", 7])
        spec.RegisterImExport(None)

        class Sink:
            heard = []

            def Changed(self, key, value):
                self.heard.append((key, value))

        source = ov_model.facet(spec.Environment(), "IEventSource")
        cookie = source.Advise(Sink())
        spec.Environment().Variable["A"] = 1
        source.Unadvise(cookie)
        spec.Environment().Variable["A"] = 2
        self.assertEqual(Sink.heard, [("A", 1)])

    def test_images(self):
        self.parameter.value = 7
        image = bytearray(b"\xff\xff")
        self.assertIs(self.parameter.ExportToByteArrayMapByMemory(image, 1), True)
        self.assertEqual(image, b"\xff\x07")
        numbers, digits = [255, 255], ov_model.ByRef("FFFF")
        self.parameter.ExportToByteArrayMapByMemory(numbers, 0)
        self.parameter.ExportToHexStringMapByMemory(digits)
        self.assertEqual((numbers, digits.value), ([7, 255], "07FF"))
        self.parameter.ImportFromByteArrayMapByMemory(b"\x03", 0)
        self.assertEqual(self.parameter.value, 3)

    def test_other_threads_are_told_so(self):
        caught = []
        held = [self.module.Gui()]

        def run():
            held.clear()  # an object may end on any thread
            try:
                self.module.GetLanguage()
            except RuntimeError as error:
                caught.append(str(error))

        thread = threading.Thread(target=run)
        thread.start()
        thread.join()
        self.assertIn("one thread", caught[0])
        self.assertEqual(self.module.GetLanguage(), 9)


class PackageTest(unittest.TestCase):
    def test_hints_are_those_of_the_living_objects(self):
        done = subprocess.run([sys.executable, ROOT / "bindings/python/generate_contract.py", "--check"],
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stdout)
        seen = 0
        for name in contract.__all__:
            hints = getattr(contract, name)
            if not (isinstance(hints, type) and name.startswith(("CBase_", "IBase_", "IExplain_P"))):
                continue
            for class_name in [name, "CBase_Module", "CBase_Channel", "CBase_Group", "CBase_Block",
                               "CBase_ParameterInt", "CBase_ParameterString"]:
                try:
                    living = ov_model.facet(ov_model.create(class_name), name)
                except RuntimeError:
                    continue
                told = {*vars(hints), *vars(hints).get("__annotations__", {}), "NewEnum"}
                there = {*dir(living), "NewEnum"}
                self.assertEqual({m for m in told if m[0] != "_"}, {m for m in there if m[0] != "_"}, name)
                seen += 1
                break
        self.assertGreater(seen, 15)

    def test_examples_run(self):
        def run(script, *arguments):
            return subprocess.run([sys.executable, ROOT / "examples/python" / script, *arguments], capture_output=True,
                                  text=True, check=False)

        table = run("tree_table.py", DATABASE, "TT200 HART", "--csv")
        rows = {row["path"]: row for row in csv.DictReader(table.stdout.splitlines())}
        self.assertEqual(rows["1/23/2305"]["max"], "850.0", table.stderr)
        curve = run("limits_curve.py", DATABASE, "TT200 HART", "1/23/2304", "1/23/2305", "--steps", "2")
        self.assertEqual([line.split()[:3] for line in curve.stdout.splitlines()[1:]],
                         [["-200", "-200", "850"], ["325", "325", "850"], ["850", "850", "850"]], curve.stderr)
        for script, arguments in [("tree_table.py", ["TT9"]), ("tree_table.py", ["TT200 HART", "--group", "9/9"]),
                                  ("limits_curve.py", ["TT200 HART", "1", "2"])]:
            failed = run(script, DATABASE, *arguments)
            self.assertEqual((failed.returncode, failed.stderr.count("\n")), (1, 1), failed.stderr)

    def test_versions_agree_and_a_missing_library_is_told(self):
        failed = subprocess.run([sys.executable, "-c", "import ov_model"], capture_output=True, text=True, check=False,
                                env={**os.environ, "OV_MODEL_LIBRARY": "/nowhere/lib.so"})
        self.assertIn(f'version = "{ov_model.__version__}"', (ROOT / "bindings/python/pyproject.toml").read_text())
        self.assertIn("ImportError: cannot load the OV_Model library: /nowhere/lib.so does not exist", failed.stderr)


if __name__ == "__main__":
    unittest.main()
