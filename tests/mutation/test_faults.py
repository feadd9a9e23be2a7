#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Which faults scripts/mutate puts into a source, and which places it leaves alone."""
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts/mutation"))
from cppsource import code_of  # noqa: E402
from mutant import mutants_of  # noqa: E402
from sample import by_place, sample  # noqa: E402


def faults_in(text, kind=None):
    return [mutant.applied_to(text) for mutant in mutants_of("src/a/b.cpp", text)
            if kind is None or mutant.kind == kind]


class Faults(unittest.TestCase):
    def is_changed_into(self, text, *wanted):
        self.assertEqual(sorted(faults_in(text)), sorted(wanted))

    def test_operators(self):
        for before, after in (("a < b", "a <= b"), ("a <= b", "a < b"), ("a == b", "a != b"),
                              ("a + b", "a - b"), ("a * b", "a / b"), ("a % b", "a / b"),
                              ("a += b", "a -= b"), ("a && b", "a || b"), ("a & b", "a | b"),
                              ("a << b", "a >> b")):
            self.is_changed_into(f"x = {before};", f"x = {after};")

    def test_steps_and_bounds(self):
        self.is_changed_into("++i;", "--i;")
        self.is_changed_into("x = qMin(a, b);", "x = qMax(a, b);")
        self.is_changed_into("x = std::max<int>(a, b);", "x = std::min<int>(a, b);")

    def test_numbers_and_truths(self):
        self.is_changed_into("x = 0;", "x = 1;")
        self.is_changed_into("x = 1;", "x = 0;")
        self.is_changed_into("x = 60'000U;", "x = 60001U;")
        self.is_changed_into("x = 0xFF;", "x = 0x100;")
        self.is_changed_into("x = true;", "x = false;")

    def test_conditions(self):
        self.is_changed_into("if (a)\n    b = c;", "if (!(a))\n    b = c;")
        self.is_changed_into("if (!a)\n    b = c;", "if (a)\n    b = c;")
        self.is_changed_into("while (a.b(c)) {", "while (!(a.b(c))) {")

    def test_declarations_in_conditions_are_not_negated(self):
        self.assertEqual(faults_in("if (auto* a = b())\n    c = d;"), [])

    def test_dropped_calls(self):
        for call in ("call(a, b(c));", "_a->b.call();", "emit call();", "A::call(\n    a,\n    b);"):
            self.is_changed_into(f"{{ {call} }}", "{ ; }")

    def test_calls_behind_a_label(self):
        self.assertEqual(faults_in("case A:\n    call();\n", "dropped call"), ["case A:\n    ;\n"])

    def test_declarations_are_no_calls(self):
        for text in ("class A {\n    explicit A(int a);\n    void call(int a);\n};", "{ QRect a(b, c); }",
                     "{ return call(a); }", "{ a = call(b); }",
                     "{ a = b ? c\n          : call(d); }", "{ a = {b, call()}; }"):
            self.assertEqual(faults_in(text, "dropped call"), [])

    def test_calls_that_nobody_notices_are_not_dropped(self):
        self.assertEqual(faults_in("{ a.reserve(b); }"), [])

    def test_dropped_returns(self):
        self.assertEqual(faults_in("{ return; }"), ["{ ; }"])
        self.assertEqual(faults_in("if (a)\n    return b;\nreturn c;", "dropped return"),
                         ["if (a)\n    ;\nreturn c;"])
        # A function must not end without a value.
        self.assertEqual(faults_in("if (a)\n    return b;\n}", "dropped return"), [])

    def test_what_is_no_code_stays(self):
        for text in ("// a < b\n", "/* a < b\n1 */", 'x = "a < 1";', 'x = tr("a < 1");', "x = '1';",
                     "#define A 1\n", "static_assert(a < 1);", "template <int N = 1>\n",
                     "bool operator<(A a);", "[[nodiscard]]", "void f() const = 0;", 'x = R"(1 < 2)";'):
            self.assertEqual(faults_in(text), [], text)

    def test_what_only_warns_stays(self):
        self.assertEqual(faults_in('{\n    TESKEL_ASSERT(a < 1, "a<1", unit);\n}'), [])
        self.assertEqual(faults_in('{\n    teskel::verify(a < 1, "a<1", unit, 1);\n}'), [])
        self.assertEqual(faults_in('{\n    qWarning("%d", a + 1);\n}'), [])
        # But not what the program does when the condition does not hold.
        self.assertTrue(faults_in('if (!TESKEL_ASSERT(a < b, "a<b", unit))\n    return;'))

    def test_places_stay(self):
        text = 'a("x\\"y", b); // c\nd = 1;'
        self.assertEqual(len(code_of(text)), len(text))
        self.assertEqual([mutant.line for mutant in mutants_of("a", text)], [2])

    def test_a_line_that_is_there_twice_is_told_by_the_one_before(self):
        found = mutants_of("a", "{\n    b = c;\n    return;\n}\n{\n    d = e;\n    return;\n}\n")
        self.assertEqual([(mutant.original, mutant.mutated) for mutant in found],
                         [("b = c; return;", "b = c; ;"), ("d = e; return;", "d = e; ;")])


class Sample(unittest.TestCase):
    found = mutants_of("a", "".join(f"a{number} = b < {number};\n" for number in range(50)))

    def test_hangs_on_the_seed_alone(self):
        self.assertEqual(sample(self.found, 7), sample(list(reversed(self.found)), 7))
        self.assertNotEqual(sample(self.found, 7), sample(self.found, 8))
        self.assertEqual(by_place(sample(self.found, 7)), by_place(self.found))


if __name__ == "__main__":
    unittest.main()
