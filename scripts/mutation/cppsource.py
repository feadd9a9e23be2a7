# SPDX-License-Identifier: MIT
"""Which characters of a C++ source are code that a fault can be put into."""
import re

# Comments, string and character literals; a digit separator is no literal.
NOT_CODE = re.compile(
    r"""//[^\n]*|/\*.*?\*/|R"(?P<end>[^(\s]*)\(.*?\)(?P=end)"|"(?:\\.|[^"\\\n])*"|'(?:\\.[^'\n]*|[^'\\\n])'""",
    re.DOTALL)
# What a program does not do when it runs: directives, attributes, heads of templates, names of
# operators, functions without a body, and what the compiler checks.
NOT_RUN = re.compile(
    r"^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*|\[\[.*?\]\]|\btemplate <[^\n]*>|\boperator\s*[^\s\w(]+"
    r"|(?<=\))[^;{})]*= 0;|\bstatic_assert\([^;]*;|^(?:using|namespace)\b[^;{]*",
    re.DOTALL | re.MULTILINE)
# Statements that only tell a developer something.
TELLING = re.compile(r"(?:^|(?<=[;{})]))\s*(?:TESKEL_ASSERT|teskel::verify|q(?:Debug|Info|Warning|Critical))(?=\()",
                     re.MULTILINE)


def blank(text):
    """As many spaces, in as many lines."""
    return re.sub(r"[^\n]", " ", text)


def closing(text, opening):
    """Where the bracket at `opening` is closed, or -1."""
    pairs = {"(": ")", "[": "]", "{": "}"}
    close, depth = pairs[text[opening]], 0
    for position in range(opening, len(text)):
        if text[position] == text[opening]:
            depth += 1
        elif text[position] == close:
            depth -= 1
            if depth == 0:
                return position
    return -1


def without_telling(code):
    for match in reversed(list(TELLING.finditer(code))):
        end = closing(code, match.end())
        if end >= 0 and code[end + 1:end + 2] == ";":
            code = code[:match.start()] + blank(code[match.start():end + 2]) + code[end + 2:]
    return code


def code_of(text):
    """`text` with blanks for all that is not to be changed; each position stays what it was."""
    code = NOT_CODE.sub(lambda match: blank(match[0]), text)
    code = NOT_RUN.sub(lambda match: blank(match[0]), code)
    return without_telling(code)
