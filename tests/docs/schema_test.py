"""Compares the schemas in docs/ with what the host writes: schema_test.py TEST HOST-COMMAND..."""

import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest.mock

import attr
import jsonschema
import sarif_om

ROOT = pathlib.Path(__file__).resolve().parents[2]
SAMPLES = sorted(path.name for path in (ROOT / "samples").glob("*.xml"))
HAVE_IGNORED = {"legacy-three-numbers.xml", "other-module.xml"}  # parts that the module ignores

# What others may put in the place of a part of a rule document, and what nobody may.
FOREIGN = [
    ("<MfxRules", '<!-- mine --><MfxRules by="me"'), ("<Value>", '<Note/><Value x="y">'),
    ("<Rule ", '<x:e xmlns:x="u:u" Status="on">a<Value>b</Value></x:e><Rule owner="me" '),
    ("<Parameter ", '<Note/><Parameter Type="4711" Status="?"><Value>x</Value></Parameter><Parameter a="b" '),
    ("<Remarks />", "<Note>n</Note><Remarks>r</Remarks>"), (' Attribute5="1.5"', ""),
]
WRONG = [
    ("<MfxRules", '<MfxRules Type="1"'), ('Unit="1"', 'Unit="10"'), ('AngleUnit="0"', 'AngleUnit="4"'),
    ('Version="1"', 'Version="2"'), ('Severity="2"', 'Severity="high"'), ('="Variable Draft Angle"', '="Draft"'),
    (' Summary="', ' Note="'), ('<Constraint Type="1"', "<Constraint"), ('10067" Status="1"', '10067" Status="yes"'),
    ("<Operator>7</Operator>", ""), ("<Operator>7<", "<Operator>least<"), ("<Value>6<", "<Value>6 mm<"),
    ("<Value>6<", "<Value>INF<"), ("<Value>6<", '<Value Attribute1="6"><'), ("<Value>kg<", "<Value>stone<"),
    ('Attribute1="25.4"', 'Attribute1="1e3"'), ('Attribute4="2.5"', ""), ("<Remarks />", "<Remarks /><Remarks />"),
    ("<Rule ", '<Group><Rule Module="Other" /></Group><Rule '), ("<AbsoluteValue />", "<AbsoluteValue>5</AbsoluteValue>"),
]
ACCEPTED = {"version": 1, "accepted": [
    {"key": "minimum-above-maximum", "place": "19010/10067", "file": "changed.xml", "reason": "agreed"},
    {"key": "no-rule", "place": None, "reason": "not found"},
]}


def objects(value):
    """Every object in a JSON value, the value itself first."""
    if isinstance(value, dict):
        yield value
    for child in value.values() if isinstance(value, dict) else value if isinstance(value, list) else ():
        yield from objects(child)


class SchemaTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        shutil.copytree(ROOT / "samples", self.folder, dirs_exist_ok=True)

    def run_program(self, exit_code, *command):
        run = subprocess.run(command, cwd=self.folder, capture_output=True, encoding="utf-8")
        self.assertEqual(run.returncode, exit_code, f"{command}: {run.stderr}")
        return run.stdout

    def run_host(self, exit_code, *arguments):
        return self.run_program(exit_code, *HOST, *arguments)

    def validate_document(self, name, exit_code=0):
        self.run_program(exit_code, "xmllint", "--noout", "--relaxng", ROOT / "docs/rule-document.rng", name)

    def write_changed(self, part, by):
        before, _, after = (self.folder / "all-rules.xml").read_text("utf-8").partition(part)
        self.assertTrue(after, part)
        (self.folder / "changed.xml").write_text(before + by + after, "utf-8")

    def test_rule_document(self):
        self.run_host(0, "new", "new.xml", "--lang", "japanese")
        for name in ["new.xml", *SAMPLES]:
            self.validate_document(name)
            if name not in HAVE_IGNORED:
                self.run_host(0, "convert", name, "--length", "yd", "--angle", "rad", "-o", "changed.xml")
                self.validate_document("changed.xml")
        for part, by in FOREIGN:
            self.write_changed(part, by)
            self.run_host(0, "convert", "changed.xml", "--length", "in")
            self.validate_document("changed.xml")
        for part, by in WRONG:
            with self.subTest(by):
                self.write_changed(part, by)
                self.validate_document("changed.xml", exit_code=3)  # XML, but not valid

    def read_schema(self, path, outputs):
        """The schema, which takes the outputs. The outputs and their parts by the keys that they have."""
        schema = json.loads((ROOT / path).read_text("utf-8"))
        jsonschema.Draft202012Validator.check_schema(schema)
        self.validator = jsonschema.Draft202012Validator(schema)
        outputs = [json.loads(output) for output in outputs]
        for output in outputs:
            self.validator.validate(output)
        return schema, {tuple(part): (output, part) for output in reversed(outputs) for part in objects(output)}

    def validate_json(self, name, outputs, wrong):
        """The schema takes the outputs, describes every key in them and no other, and refuses changed ones."""
        schema, one_of_each = self.read_schema(f"docs/{name}", outputs)
        properties = [item for part in objects(schema) for item in part.get("properties", {}).items()]
        self.assertEqual({key for key, _ in properties}, {key for keys in one_of_each for key in keys})
        definitions = [schema["$defs"].get(value.get("$ref", "").split("/")[-1], value) for _, value in properties]
        self.assertEqual([definition for definition in definitions if "description" not in definition], [])
        for output, part in one_of_each.values():
            for instead in [{**part, "extra": 1}, *({k: part[k] for k in part if k != key} for key in part)]:
                self.refuse(output, part, instead)
        for key, value in wrong:
            output, part = next(place for keys, place in one_of_each.items() if key in keys)
            self.refuse(output, part, {**part, key: value})

    def refuse(self, output, part, instead):
        with unittest.mock.patch.dict(part, instead, clear=True):
            self.assertFalse(self.validator.is_valid(output), instead)

    def test_show(self):
        outputs = [self.run_host(int(name in HAVE_IGNORED), "show", name, "--json") for name in SAMPLES]
        self.write_changed("<Value>6<", "<Value>1e999<")
        outputs.append(self.run_host(1, "show", "changed.xml", "--json", "--lang", "korean"))
        self.validate_json("show.schema.json", outputs, [
            ("version", 1), ("length", "km"), ("angle", ""), ("line", 0), ("ruleId", "19010"), ("recognised", 1),
            ("status", "0"), ("active", "yes"), ("unit", "deg"), ("values", 6), ("values", [True]), ("rows", [1]), ("label", "")])

    def write_accepted(self, accepted):
        (self.folder / "accepted.json").write_text(json.dumps(accepted), "utf-8")

    def check_samples(self, *options):
        """Outputs of check: with a finding that is accepted, several of a kind at one place, an unreadable file."""
        self.write_changed("<Value>16<", "<Value>1<")
        self.write_accepted(ACCEPTED)
        text = (self.folder / "all-rules.xml").read_text("utf-8")
        (self.folder / "same-place.xml").write_text(text.replace("<Value>0.", "<Value>x"), "utf-8")
        return [self.run_host(0, "check", "draft-angle.xml", *options),
                self.run_host(3, "check", "none.xml", "changed.xml", "same-place.xml", *SAMPLES, "--accepted", "accepted.json", *options)]

    def test_check(self):
        self.validate_json("check.schema.json", self.check_samples("--json", "--lang", "french"), [
            ("version", "1"), ("files", []), ("unreadable", ""), ("length", "mile"), ("line", -1), ("text", ""),
            ("rulesChecked", 1.5), ("key", "Unknown rule"), ("severity", "fatal"), ("ruleId", 0), ("parameter", "10067"), ("place", ""),
            ("failOn", ""), ("entry", 0), ("reason", ""), ("accepted", "")])

    def test_links(self):
        (self.folder / "rules").mkdir()
        shutil.copy(self.folder / "draft-angle.xml", self.folder / "rules")
        (self.folder / "rules/again").symlink_to("..")
        files = [file["file"] for file in json.loads(self.run_host(0, "check", "rules/**/d*angle.xml", "--json"))["files"]]
        self.assertEqual(files, ["rules/again/draft-angle.xml", "rules/draft-angle.xml"])

    def test_accepted(self):
        self.write_changed("<Value>16<", "<Value>1<")
        self.write_accepted(ACCEPTED)
        self.run_host(0, "check", "changed.xml", "--accepted", "accepted.json")
        schema, one_of_each = self.read_schema("docs/accepted-findings.schema.json", [json.dumps(ACCEPTED)])
        self.assertEqual({key for part in objects(schema) for key in part.get("properties", {})}, {key for keys in one_of_each for key in keys})
        for key, value in [("version", 2), ("accepted", {}), ("key", "No Key"), ("place", ""), ("file", None), ("reason", " "), ("extra", 1)]:
            output, part = next(place for keys, place in one_of_each.items() if key in keys or key == "extra")
            with self.subTest(key), unittest.mock.patch.dict(part, {key: value}):
                self.assertFalse(self.validator.is_valid(output))
                self.write_accepted(output)
                self.run_host(3, "check", "changed.xml", "--accepted", "accepted.json")

    def test_sarif(self):
        schema, one_of_each = self.read_schema("tests/docs/sarif.schema.json", self.check_samples("--format", "sarif"))
        properties = {key for part in objects(schema) for key in part.get("properties", {}) if key != "$ref"}
        self.assertEqual({key for keys in one_of_each for key in keys}, properties | {"keyAndPlace/v1"})
        for output, part in one_of_each.values():
            self.refuse(output, part, {**part, "extra": 1})
        for name, definition in schema["$defs"].items():
            if "properties" in definition and name != "PropertyBag":  # which may have any
                fields = {field.metadata["schema_property_name"]: field for field in getattr(sarif_om, name).__attrs_attrs__}
                self.assertLessEqual(set(definition["properties"]), set(fields), name)
                required = {key for key, field in fields.items() if field.default is attr.NOTHING}
                self.assertLessEqual(required, set(definition["required"]), name)
        log, _ = next(place for keys, place in one_of_each.items() if "justification" in keys)
        [run] = log["runs"]
        [accepted] = [result for result in run["results"] if result["suppressions"]]
        self.assertEqual(accepted["suppressions"], [{"kind": "external", "justification": "agreed"}])
        self.assertEqual(accepted["locations"][0]["logicalLocations"], [{"fullyQualifiedName": "19010/10067"}])
        self.assertEqual([rule["id"] for rule in run["tool"]["driver"]["rules"]][accepted["ruleIndex"]], accepted["ruleId"])
        self.assertEqual(run["invocations"][0]["executionSuccessful"], False)
        prints = [(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"], *result["partialFingerprints"].values())
                  for result in run["results"]]
        self.assertEqual(len(prints), len(set(prints)))

    def test_diff(self):
        outputs = [self.run_host(int(name != SAMPLES[0]), "diff", SAMPLES[0], name, "--json") for name in SAMPLES]
        outputs.append(self.run_host(1, "diff", "draft-angle-inches.xml", "--defaults", "--json"))
        self.validate_json("diff.schema.json", outputs, [
            ("version", 0), ("differences", None), ("ruleId", 0), ("constraint", 1), ("row", 0), ("unit", "lb"),
            ("left", 1), ("right", 1), ("value", ""), ("key", None),
            ("kind", "band"), ("after", -1), ("bounds", 1), ("values", [1]), ("rows", [1]), ("columns", [""])])

    def test_limits(self):
        casting = ["--material", "steel", "--size", "700 mm", "--weight", "1lb"]
        outputs = [self.run_host(code, "limits", "all-rules.xml", *options, "--json")
                   for code, options in [(1, casting), (1, ["--group", "Stel"]), (0, [])]]
        self.run_host(0, "set", "all-rules.xml", "19020/Steel/29120/3=no limit", "19030/29167/active=no")
        outputs.append(self.run_host(1, "limits", "all-rules.xml", *casting, "--json", "--lang", "japanese"))
        self.validate_json("limits.schema.json", outputs, [
            ("version", 2), ("file", ""), ("length", "km"), ("angle", ""), ("mass", "oz"), ("material", 1), ("size", -1),
            ("weight", "1 lb"), ("key", "10067"), ("ruleId", 19050), ("status", "on"), ("answer", "none"), ("reason", "Band"),
            ("text", ""), ("place", ""), ("bounds", None), ("limits", [1]), ("label", ""), ("value", "none"), ("unit", 1)])

    def test_sheet(self):
        # A copy of the program, with the tests' own reader of .xlsx workbooks beside it.
        *emulator, program = HOST
        build = pathlib.Path(program).parents[1]
        (self.folder / "bin").mkdir()
        for file in [program, *build.glob("bin/*.dll"), *build.glob("tests/exchange/reader/*.dll")]:
            shutil.copy(file, self.folder / "bin")
        shutil.copytree(build / "lang", self.folder / "lang")
        (self.folder / "b.xlsx").touch()
        sheet = [*emulator, self.folder / "bin" / pathlib.Path(program).name, "sheet", "b.xlsx", "--json"]
        outputs = [self.run_program(0, *sheet), self.run_program(0, *sheet, "--columns", "a,xfd")]
        self.validate_json("sheet.schema.json", outputs, [
            ("version", 2), ("file", ""), ("sheet", 1), ("columns", []), ("column", "a"), ("column", "1"), ("cells", [1])])


if __name__ == "__main__":
    test, *HOST = sys.argv[1:]
    unittest.main(argv=[sys.argv[0], f"SchemaTest.{test}"])
