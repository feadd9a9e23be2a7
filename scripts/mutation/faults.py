# SPDX-License-Identifier: MIT
"""The kinds of small faults: what each changes in the code of a source, and into what.

A kind is a function that takes code_of(text) and yields (start, end, what is there instead), in
which {} stands for what was there. Binary operators are told from types by the spaces round them,
which clang-format sees to.
"""
import re

from cppsource import closing

OPERATORS = {
    "<": ["<="], "<=": ["<"], ">": [">="], ">=": [">"], "==": ["!="], "!=": ["=="],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["/"],
    "+=": ["-="], "-=": ["+="], "|=": ["&="], "&=": ["|="],
    "&&": ["||"], "||": ["&&"], "&": ["|"], "|": ["&"], "<<": [">>"], ">>": ["<<"],
}
BINARY = re.compile(r"(?<=\s)(?:" + "|".join(sorted(map(re.escape, OPERATORS), key=len, reverse=True)) +
                    r")(?=\s)")
STEP = re.compile(r"\+\+|--")
BOUND = re.compile(r"\b(?:qMin|qMax|std::min|std::max)(?=[(<])")
OTHER_BOUND = {"qMin": "qMax", "qMax": "qMin", "std::min": "std::max", "std::max": "std::min"}
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9a-fA-F']+|\d[\d']*)(?=[uUlLzZ]*(?![\w.']))")
TRUTH = re.compile(r"\b(?:true|false)\b")
NEGATION = re.compile(r"!(?=[\w(:])")
CONDITION = re.compile(r"\b(?:if|while) (?=\()")
CALL = re.compile(r"(?P<call>(?:emit )?(?:[\w:]+(?:\(\))?(?:\.|->))*(?:\w+::)*(?P<name>\w+)(?=\())")
BARE_RETURN = re.compile(r"\breturn;")
EARLY_RETURN = re.compile(r"(?:(?<=\))|(?<=\]\]))\s*\n\s*(?P<what>return\b[^;{]*;)(?!\s*[}])")

# Calls that change how fast something is, or names for a debugger.
WITHOUT_RESULT = {"reserve", "squeeze", "shrink_to_fit", "setObjectName"}
NO_CALLS = {"if", "while", "for", "switch", "return", "sizeof", "alignas", "decltype", "defined",
            "explicit", "noexcept", "catch"}


def operators(code):
    for match in BINARY.finditer(code):
        for other in OPERATORS[match[0]]:
            yield match.start(), match.end(), other


def steps(code):
    for match in STEP.finditer(code):
        yield match.start(), match.end(), "--" if match[0] == "++" else "++"


def bounds(code):
    for match in BOUND.finditer(code):
        yield match.start(), match.end(), OTHER_BOUND[match[0]]


def numbers(code):
    for match in NUMBER.finditer(code):
        digits = match[1].replace("'", "")
        value = int(digits, 0 if digits[:2] in ("0x", "0X") else 10)
        other = 0 if value == 1 else value + 1
        yield match.start(), match.end(), hex(other) if digits[:2] in ("0x", "0X") else str(other)


def truths(code):
    for match in TRUTH.finditer(code):
        yield match.start(), match.end(), "false" if match[0] == "true" else "true"


def negations(code):
    for match in NEGATION.finditer(code):
        yield match.start(), match.end(), ""


def conditions(code):
    for match in CONDITION.finditer(code):
        end = closing(code, match.end())
        inside = code[match.end() + 1:end]
        # A declaration cannot be negated, and what is negated alone is left to negations().
        if end > 0 and not re.search(r"(?<![=!<>])=(?!=)|;|^![^&|]*$", inside):
            yield match.end(), end + 1, "(!{})"


def dropped_calls(code):
    for match in CALL.finditer(code):
        before = code[:match.start()].rstrip()
        begins = before.endswith((";", "{", "}", ")", "else")) or (
            # A label; the colon of a choice stands at the beginning of a line.
            before.endswith(":") and "\n" in code[len(before):match.start()])
        name = match["name"]
        declares = match["call"] == name and name[0].isupper()
        if not begins or declares or name in NO_CALLS or name in WITHOUT_RESULT:
            continue
        end = closing(code, match.end())
        if end > 0 and code[end + 1:end + 2] == ";":
            yield match.start(), end + 2, ";"


def dropped_returns(code):
    for match in BARE_RETURN.finditer(code):
        yield match.start(), match.end(), ";"
    for match in EARLY_RETURN.finditer(code):
        if match["what"] != "return;":
            yield match.start("what"), match.end("what"), ";"


KINDS = {
    "operator": operators, "step": steps, "bound": bounds, "number": numbers, "truth": truths,
    "negation": negations, "condition": conditions, "dropped call": dropped_calls,
    "dropped return": dropped_returns,
}
