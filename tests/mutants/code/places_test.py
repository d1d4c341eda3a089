#!/usr/bin/python3
"""What the changes do: small programs are changed, built, and run once for each change."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import clang.cindex

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

import edits  # noqa: E402
import forms  # noqa: E402
import make_copy  # noqa: E402
import places  # noqa: E402

FIRST = 1
HEAD = """#include <cstdio>
#include <map>
#include <string>
#include <vector>
"""


class Changed:
    """A program with all its changes; `outputs` has what it says with each of them, by the change."""

    def __init__(self, code):
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "code.cpp"
            file.write_text(HEAD + code)
            unit = clang.cindex.Index.create().parse(
                str(file), args=["-std=c++20"],
                options=clang.cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD,
            )  # fmt: skip
            faults = [str(fault) for fault in unit.diagnostics if fault.severity >= clang.cindex.Diagnostic.Error]
            assert not faults, faults
            text, spots = places.spots_in(unit, {str(file)})[str(file)]
            self.text, self.rows = edits.applied(text, spots, FIRST)
            file.write_text(f'#include "{HERE}/Mutant.h"\n' + self.text)
            program = Path(folder) / "code"
            subprocess.run(["g++", "-std=c++20", "-w", file, "-o", program], check=True)
            self.usual, self.reached = self.run(program, 0, Path(folder) / "record")
            self.outputs = {change: self.run(program, number)[0] for number, _, change, _ in self.rows}
            self.lines = {change: line for _, line, change, _ in self.rows}

    @staticmethod
    def run(program, number, record=None):
        environment = {**os.environ, "TALLY_MUTANT": str(number)}
        if record:
            environment["TALLY_MUTANTS_RECORD"] = str(record)
        try:
            said = subprocess.run([program], env=environment, stdout=subprocess.PIPE, text=True, timeout=2).stdout
        except subprocess.TimeoutExpired:
            said = "never ends"
        return said.strip(), sorted(map(int, record.read_text().split())) if record and record.exists() else []


def calls(body, before=""):
    """A program that says what `body`, the body of int f(int a, int b), makes of some pairs of numbers."""
    return Changed(
        f"""{before}
        int f(int a, int b) {{ {body} }}
        #define SAY(a, b) std::printf("%d ", f(a, b))
        int main() {{ SAY(1, 2); SAY(2, 2); SAY(3, 2); SAY(0, 0); }}"""
    )


class PlacesTest(unittest.TestCase):
    def test_a_comparison_is_changed_at_its_edge(self):
        for operator, usual, other in (("<", "1 0 0 0", "1 1 0 1"), ("<=", "1 1 0 1", "1 0 0 0"),
                                       (">", "0 0 1 0", "0 1 1 1"), (">=", "0 1 1 1", "0 0 1 0")):  # fmt: skip
            changed = calls(f"return a {operator} b;")
            self.assertEqual(changed.usual, usual)
            self.assertEqual(list(changed.outputs.values()), [other], operator)

    def test_the_sides_of_a_comparison_may_be_of_unlike_types(self):
        changed = calls("return std::vector<int>(b).size() > a && b < 2.5;")
        self.assertEqual(changed.usual, "1 0 0 0")
        self.assertEqual(changed.outputs["> as >=: std::vector<int>(b).size() > a"], "1 1 0 1")
        self.assertEqual(changed.outputs["< as <=: b < 2.5"], "1 0 0 0")

    def test_an_equality_is_turned_round(self):
        changed = calls("bool same = a == b; return same;")
        self.assertEqual(changed.usual, "0 1 0 1")
        self.assertEqual(changed.outputs, {"turned: a == b": "1 0 1 0"})

    def test_an_inequality_that_the_compiler_makes_itself_is_turned_round_as_a_whole(self):
        changed = calls("return S{a} != S{b};", "struct S { int n; bool operator==(const S&) const = default; };")
        self.assertEqual(changed.usual, "1 0 1 0")
        self.assertEqual(changed.outputs, {"turned: S{a} != S{b}": "0 1 0 1"})

    def test_each_operand_of_a_chain_goes_once_and_is_not_turned_round_beside(self):
        changed = calls("return a == 1 && b == 2 && !(a > b);")
        self.assertEqual(
            changed.outputs,
            {
                "without && a == 1": "1 1 0 0",
                "without && b == 2": "1 0 0 0",
                "without && !(a > b)": "1 0 0 0",
                "> as >=: a > b": "1 0 0 0",
            },
        )

    def test_the_operand_of_an_or_is_taken_never_to_hold(self):
        changed = calls("return a == 1 || b == 0;")
        self.assertEqual(changed.usual, "1 0 0 1")
        self.assertEqual(changed.outputs, {"without || a == 1": "0 0 0 1", "without || b == 0": "1 0 0 0"})

    def test_a_condition_is_turned_round(self):
        changed = calls("if (a == b) return 4; return a ? 5 : 6;")
        self.assertEqual(changed.usual, "5 4 5 4")
        self.assertEqual(changed.outputs["turned: a == b"], "4 5 4 6")
        self.assertEqual(changed.outputs["turned: a"], "6 4 6 4")

    def test_a_loop_is_never_entered_rather_than_turned_round(self):
        changed = calls("while (a < b) ++a; return a;")
        self.assertEqual(changed.outputs["never: a < b"], "1 2 3 0")
        self.assertEqual(changed.outputs["left out: ++a"], "never ends")

    def test_a_condition_that_declares_keeps_its_name(self):
        changed = calls("if (const int c = a - b; c > 0) return c; if (const int d = a) return d; return 9;")
        self.assertEqual(changed.usual, "1 2 1 9")
        self.assertEqual(changed.outputs["turned: c > 0"], "-1 0 3 0")
        self.assertNotIn("turned: d", changed.outputs)

    def test_yes_and_no_are_turned_round(self):
        changed = calls("bool first = true; if (a) first = !first; return first;")
        self.assertEqual(changed.outputs["turned: true"], "1 1 1 0")
        self.assertEqual(changed.outputs["turned: !first"], "1 1 1 1")

    def test_a_statement_is_left_out(self):
        changed = calls("int n = 1; n = a; Add(n); return n;", "void Add(int& n) { n += 10; }")
        self.assertEqual(changed.outputs["left out: n = a"], "11 11 11 11")
        self.assertEqual(changed.outputs["left out: Add(n)"], "1 2 3 0")

    def test_a_statement_without_brackets_keeps_its_else(self):
        changed = calls("int n = 0; if (a == b) n = 1; else n = 2; return n;")
        self.assertEqual(changed.usual, "2 1 2 1")
        self.assertEqual(changed.outputs["left out: n = 1"], "2 0 2 0")
        self.assertEqual(changed.outputs["left out: n = 2"], "0 1 0 1")

    def test_a_way_out_is_left_out(self):
        changed = calls(
            "int n = 0; Count(n, a); for (int i = 0; i < b; ++i) { if (i == a) continue; ++n; } return n;",
            "void Count(int& n, int a) { if (a == 3) return; n += 10; }",
        )
        self.assertEqual(changed.usual, "11 12 2 10")
        self.assertEqual(changed.outputs["left out: return"], "11 12 12 10")
        self.assertEqual(changed.outputs["left out: continue"], "12 12 2 10")

    def test_checks_behind_one_another_change_places(self):
        changed = calls(
            "if (a > 1) return 1;\n// Why.\nif (b > 1) { Note(); return 2; }\nif (a == b) return 3;\nreturn 4;",
            "void Note() {}",
        )
        self.assertEqual(changed.usual, "2 1 1 3")
        self.assertEqual(changed.outputs["behind the next check: if (a > 1) return 1;"], "2 2 2 3")
        self.assertEqual(changed.outputs["behind the next check: if (b > 1) { Note(); return 2; }"], "2 1 1 3")

    def test_a_check_and_a_statement_may_end_in_an_empty_value(self):
        changed = calls("if (a == 2) return {}; if (b == 2) return 5; a = {}; return a;")
        self.assertEqual(changed.usual, "5 0 5 0")
        self.assertEqual(changed.outputs["behind the next check: if (a == 2) return {};"], "5 5 5 0")
        self.assertEqual(changed.outputs["turned: b == 2"], "0 0 0 5")
        self.assertIn("left out: a = {}", changed.outputs)

    def test_checks_that_exclude_one_another_or_give_one_answer_stay(self):
        changed = calls(
            "if (a == Kind::Plain) return 1;\nif (a == Kind::Round || a == 3) return 2;\nif (b == 2) return 2;\n"
            "if (b == a) return 2;\nif (Asks(b)) return 2;\nreturn 0;",
            "namespace Kind { constexpr int Plain = 1, Round = 2; } bool Asks(int b) { return b == 7; }",
        )
        swapped = [change for change in changed.outputs if change.startswith("behind")]
        self.assertEqual(swapped, ["behind the next check: if (b == a) return 2;"])

    def test_an_if_with_an_else_or_a_break_is_no_check(self):
        changed = calls(
            "for (;;) { if (a > 1) break; if (b > 1) return 2; if (a) return 3; else return 4; return 5; } return 6;"
        )
        self.assertFalse([change for change in changed.outputs if "next check" in change])

    def test_plus_and_minus_change_places(self):
        changed = calls("int n = a - b; n += a; return n + b * 10;")
        self.assertEqual(changed.usual, "20 22 24 0")
        self.assertEqual(changed.outputs["- as +: a - b"], "24 26 28 0")
        self.assertEqual(changed.outputs["+= as -=: n += a"], "18 18 18 0")
        self.assertEqual(changed.outputs["+ as -: n + b * 10"], "-20 -18 -16 0")

    def test_texts_and_pointers_are_not_taken_for_numbers(self):
        changed = calls('const char* end = "abc" + a; return std::string(end + 0).size();')
        self.assertFalse([change for change in changed.outputs if " as " in change])

    def test_a_number_is_one_more(self):
        changed = calls("return a * 2 + Size(7);", "int Size(int n) { return n; } int resize(int n) { return n; }")
        self.assertEqual(changed.outputs["one more than 2"], "10 13 16 7")
        self.assertEqual(changed.outputs["one more than 7"], "10 12 14 8")

    def test_numbers_that_measure_stay(self):
        changed = calls(
            "resize(7); Reserve(8); setBold(true); drawLine({{1, 2}, {3, 4}}); return 0;",
            "void resize(int n) {} void Reserve(int n) {} void setBold(bool on) {} struct Point { int x, y; }; "
            "void drawLine(std::vector<Point>) {}",
        )
        self.assertEqual(list(changed.outputs), ["left out: drawLine({{1, 2}, {3, 4}})", "one more than 0"])

    def test_what_bounds_a_measure_stays_and_other_bounds_do_not(self):
        changed = Changed(
            """#include <algorithm>
            void resize(int n) { std::printf("%d ", n); }
            void say(int n) { std::printf("%d ", n); }
            int main() { resize(std::max(2, 1 + 2)); say(std::min(7, 9)); }"""
        )
        self.assertEqual(set(changed.outputs.values()), {"3 8", "3 7", "3"})
        self.assertEqual([change for change in changed.outputs if "1" in change or "2" in change], [])

    def test_a_minus_one_stays(self):
        changed = calls("int none = -1; return a == b ? none : a - 1;")
        self.assertEqual(changed.usual, "0 -1 2 -1")
        self.assertEqual(changed.outputs["one more than 1"], "-1 -1 1 -1")
        self.assertEqual(len(changed.outputs), 3)

    def test_what_is_settled_when_the_program_is_built_stays(self):
        changed = calls(
            "static_assert(1 < 2); constexpr int Two = 1 + 1; int list[3] = {}; std::map<int, std::string> none;"
            "switch (a) { case 1 + 1: return Two; default: return b; }",
            "enum E { One = 1, Three = One + 2 }; template <int N = 4> struct T { int room[N + 1]; };"
            "constexpr const char* Name = \"A name\"; int g(int n = 5) { if constexpr (1 < 2) return n; }",
        )
        self.assertEqual(changed.outputs, {})

    def test_a_type_in_front_of_a_name_and_what_begins_at_nothing_stay(self):
        changed = calls(
            "return *Room() | All().size() | begun | Record().off | 1;",
            "template <int N> struct Rooms { int size() const { return N; } };"
            "const Rooms<3>& All() { static Rooms<3> all; return all; } int* Room() { static int room[2]; return room; }"
            "int begun = 0; bool over = false; struct Record { bool off = false; bool on = true; };",
        )
        self.assertEqual(list(changed.outputs), ["turned: true", "one more than 1"])

    def test_a_function_that_may_run_early_is_changed_where_it_runs_late(self):
        half = "constexpr int Half(int n) { return n < 2 ? 0 : 1; } static_assert(Half(2) == 1);"
        changed = calls("return Half(a);", half)
        self.assertEqual(changed.usual, "0 1 1 0")
        self.assertEqual(changed.outputs["< as <=: n < 2"], "0 0 1 0")

    def test_places_inside_one_another_are_all_changed(self):
        changed = calls("return Call([&](int n) { if (n < a + 1 && b > 0) return 1; return 0; }) == 1 ? a : b;",
                        "template <typename F> int Call(F f) { return f(1); }")  # fmt: skip
        self.assertEqual(changed.usual, "1 2 3 0")
        self.assertEqual(changed.outputs["< as <=: n < a + 1"], "1 2 3 0")
        self.assertEqual(changed.outputs["without && b > 0"], "1 2 3 0")
        self.assertEqual(changed.outputs["+ as -: a + 1"], "2 2 3 0")

    def test_a_text_that_is_shown_has_one_sign_more(self):
        changed = Changed(
            'int main() { const char* name = "id_7"; std::printf("Enter A Name %s", name);'
            'std::puts("SELECT a FROM t"); }'
        )
        self.assertEqual(list(changed.outputs)[-1], 'one sign more: "Enter A Name %s"')
        self.assertEqual(changed.outputs['one sign more: "Enter A Name %s"'], "Enter A Name id_7~SELECT a FROM t")
        self.assertFalse([change for change in changed.outputs if "SELECT" in change and "sign more" in change])

    def test_macros_are_left_as_they_are(self):
        changed = calls("return LESS(a, b);", "#define LESS(x, y) ((x) < (y) ? 1 : 0)")
        self.assertEqual(changed.outputs, {})

    def test_signs_of_other_alphabets_shift_nothing(self):
        changed = calls('const char* sign = "→ é"; return a < b;')
        self.assertIn("1 1 0 1", changed.outputs.values())

    def test_what_a_run_asks_for_is_noted(self):
        changed = calls("if (a > 5) return Never(); return 0;", "int Never() { return 7; }")
        numbers = {change: number for number, _, change, _ in changed.rows}
        self.assertIn(numbers["turned: a > 5"], changed.reached)
        self.assertNotIn(numbers["one more than 7"], changed.reached)

    def test_what_is_asked_for_on_a_full_disk_is_noted(self):
        changed = Changed(
            "#include <csignal>\n#include <sys/resource.h>\nint main(int count, char**) {"
            " std::signal(SIGXFSZ, SIG_IGN); const rlimit full{0, RLIM_INFINITY}; setrlimit(RLIMIT_FSIZE, &full);"
            " rlimit still; getrlimit(RLIMIT_FSIZE, &still); std::printf(\"%d\", count < 1 || still.rlim_cur == full.rlim_cur);"
            " return 0; }"
        )
        self.assertEqual(changed.usual, "1")
        self.assertIn(next(number for number, _, change, _ in changed.rows if change.startswith("<")), changed.reached)

    def test_a_change_is_known_by_its_line(self):
        changed = calls("\n  return a\n    < b;\n")
        (row,) = changed.rows
        self.assertEqual(row[3], "< b;")


class IsShownTest(unittest.TestCase):
    def test_words_are_shown(self):
        for text in ("Enter Class Name", "Wait !", "Yes", "Name :", " &Save ", "%1 of %2 rows"):
            self.assertTrue(places.is_shown(text), text)

    def test_statements_and_names_of_things_are_not(self):
        for text in ("SELECT a FROM t", " WHERE a = ?", "frmThing", "ClassMaster", "a b { color: red }", "x/y.png",
                     "%1", "", "txtName", "TempRankTotal"):  # fmt: skip
            self.assertFalse(places.is_shown(text), text)


class FormsTest(unittest.TestCase):
    HEADER = """        cmd->setMaxLength(3);
        cmd->setMinimumSize(QSize(1, 2));
        QWidget::setTabOrder(one, two);
        cmd->setText(QCoreApplication::translate("frm", "S&ave * :", nullptr));
        cmd->setText(QCoreApplication::translate("frm", "Plain", nullptr));
        cmd->setText(QString());
"""

    def test_a_form_is_changed_in_its_order_letters_texts_and_states(self):
        text, rows = edits.applied(self.HEADER, forms.spots_in(self.HEADER), 5)
        self.assertEqual(
            sorted(change for _, _, change, _ in rows),
            ["Tab in front of one: two", "left out: cmd->setMaxLength(3)", 'no letter: "S&ave * :"',
             'one sign more: "Plain"', 'one sign more: "S&ave * :"'],
        )  # fmt: skip
        self.assertIn("(::mutants::Either<5, QWidget>(one, two), ::mutants::Either<5, QWidget>(two, one));", text)
        self.assertIn("{ if (!::mutants::On<9>()) cmd->setMaxLength(3); }", text)
        self.assertEqual(text.count("\n"), self.HEADER.count("\n"))

    def test_the_line_of_a_form_is_that_of_the_control(self):
        form = '<ui>\n <widget name="one">\n <widget name="cmd">\n'
        self.assertEqual(make_copy.line_in_form(form, "cmd->setText(QString());"), 3)
        self.assertEqual(make_copy.line_in_form(form, "QWidget::setTabOrder(one, two);"), 2)


class RefusedTest(unittest.TestCase):
    def test_what_lies_on_a_refused_line_goes(self):
        text = "a < b;\nc < d;\n"
        spots = [edits.Spot(2, ["x"]).instead(2, 3, ","), edits.Spot(9, ["y"]).instead(9, 10, ",")]
        self.assertEqual(make_copy.without(text, spots, {2}), spots[:1])

    def test_a_file_keeps_its_numbers_whatever_others_there_are(self):
        some = make_copy.first_numbers(["src/a.cpp", "src/c.cpp"])
        more = make_copy.first_numbers(["src/a.cpp", "src/b.cpp", "src/c.cpp"])
        self.assertEqual({**more, **some}, more)


if __name__ == "__main__":
    unittest.main()
