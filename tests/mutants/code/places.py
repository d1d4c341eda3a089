"""The places of a C++ file that can be changed, found in its parsed form."""

import re

from clang.cindex import CursorKind as Kind
from clang.cindex import TypeKind

from edits import Spot

EXPRESSIONS_THAT_DO = {
    Kind.CALL_EXPR, Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.UNARY_OPERATOR, Kind.CXX_NEW_EXPR,
    Kind.CXX_THROW_EXPR, Kind.CONDITIONAL_OPERATOR,
}  # fmt: skip
NUMBERS = {
    TypeKind.CHAR_S, TypeKind.SHORT, TypeKind.INT, TypeKind.LONG, TypeKind.LONGLONG, TypeKind.UCHAR, TypeKind.USHORT,
    TypeKind.UINT, TypeKind.ULONG, TypeKind.ULONGLONG, TypeKind.FLOAT, TypeKind.DOUBLE, TypeKind.LONGDOUBLE,
}  # fmt: skip
# What is settled when the program is built, or says nothing that runs.
SETTLED = {
    Kind.STATIC_ASSERT, Kind.ENUM_DECL, Kind.TYPE_REF, Kind.TEMPLATE_REF, Kind.NAMESPACE_REF, Kind.DECL_REF_EXPR,
    Kind.PARM_DECL, Kind.CXX_UNARY_EXPR, Kind.TYPE_ALIAS_DECL, Kind.USING_DECLARATION, Kind.USING_DIRECTIVE,
    Kind.MEMBER_REF, Kind.OVERLOADED_DECL_REF, Kind.FRIEND_DECL,
}  # fmt: skip
HOUSES = {Kind.NAMESPACE, Kind.LINKAGE_SPEC, Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE}
FUNCTIONS = {
    Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.FUNCTION_TEMPLATE,
    Kind.CONVERSION_FUNCTION,
}  # fmt: skip
EDGES = {
    "<": ("Less", "<="),
    "<=": ("LessOrEqual", "<"),
    ">": ("Greater", ">="),
    ">=": ("GreaterOrEqual", ">"),
}

# Where things stand and how wide they are is for the eye; what is reserved is for speed.
LAYOUT = re.compile(
    r"(set(Contents)?Margins?|(set|add)(Spacing|Stretch)|set(Row|Column)Stretch|setStretchFactor|"
    r"set(Fixed|Minimum|Maximum|Base)?(Size|Width|Height)|set(Row|Column|Section)(Width|Height|Size)|"
    r"setDefaultSectionSize|set(Geometry|SizePolicy|IconSize|PointSizeF?|PixelSize|Font|Bold|(Font)?Weight|WidthF|FrameShape|LineWidth|Alignment|"
    r"RenderHints?|SizeAdjustPolicy|UniformItemSizes|ResizeContentsPrecision)|"
    r"resize(Section)?|[Rr]eserve|squeeze|shrink_to_fit)$"
)
# What bounds a measure is one too.
BOUNDS = ("min", "max", "clamp")
# What braces in a call become by themselves.
LISTS = ("", "initializer_list", "vector", "QList")
# Numbers in there are measures, colours or times.
MEASURES = re.compile(
    r"(Q(Size|Point|Rect|Margins|Line|Polygon|Transform)F?|QColor|QPen|QBrush|QFont|qRgba?|from(Rgb|Hsl|Hsv)F?|"
    r"(set)?(Alpha|Hsl|Hsv|Rgb|AlphaF|PenWidth)|adjusted|adjust|translated?|rotate|scaled?|moved?|move(Left|Right|Top|Bottom)|lighter|darker|draw\w+|"
    r"fillRect|(add|insert)(Widget|Layout)|setInterval|singleShot|start|msleep|sleep|processEvents|waitFor\w*|FromTwips|Twips)$"
)

LITERALS = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)|(?P<raw>R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)")|(?P<sign>'(?:[^'\\\n]|\\.)+')|"""
    r"""(?P<directive>^[ \t]*\#[^\n]*)|"""
    r"""(?P<text>(?<![\w'])"(?:[^"\\\n]|\\.)*"(?:\s*"(?:[^"\\\n]|\\.)*")*)""",
    re.S | re.M,
)
STATEMENT = re.compile(
    r"\b(SELECT|INSERT|UPDATE|DELETE|FROM|WHERE|AND|OR|ON|IN|SET|VALUES|CREATE|ALTER|DROP|PRAGMA|ORDER BY|GROUP BY|"
    r"SAVEPOINT|RELEASE|ROLLBACK|INNER|JOIN|CASE|WHEN|UNION|AS|LIKE|NULL|NOT|COLLATE|ATTACH|BEGIN|"
    r"TABLE|KEY|INTEGER|TEXT|REAL)\b"
)


def is_shown(text):
    """Whether people read this text: words, and neither a piece of a statement nor a name of something."""
    if STATEMENT.search(text) or re.search(r"[{}\\=]|::|://|^:|qss|\.\w{2,4}$", text):
        return False
    return bool(re.search(r"[A-Za-z]{2,}.* |[?:!]$| :", text) and re.search(r"[A-Za-z]{2}", text)) or bool(
        re.fullmatch(r"\s*&?[A-Z][a-z]+[.:]?\s*", text)
    )


def values_of(condition):
    """What is compared in `a == V || a == W`, and the values; nothing for other conditions. Only a value that stands
    fast is one."""
    terms = [re.fullmatch(r"\s*(.+?) == (-?\d\w*|\w*::[\w:]+)\s*", term) for term in condition.split("||")]
    if not all(terms) or len({term[1] for term in terms}) > 1:
        return None
    return terms[0][1], {term[2] for term in terms}


class Finder:
    """Finds the spots of one file."""

    def __init__(self, name, text, macros):
        """`macros` are the spans (begin, end) of the macros that the file uses."""
        self.name = name
        self.text = text
        self.macros = macros
        self.spots = []
        self.bodies = []  # where code runs
        self.settled = []  # what of it is settled when the program is built
        self.seen = set()

    # The text.

    def span(self, cursor):
        extent = cursor.extent
        if not extent.start.file or extent.start.file.name != self.name:
            return None
        start, end = self.offset(extent.start), self.offset(extent.end)
        if self.is_made_of_equality(cursor, start):
            inner = list(cursor.get_children())
            return self.span(inner[0]) if len(inner) == 1 else None
        return (start, end) if start < end else None

    def is_made_of_equality(self, cursor, start):
        """a != b where there is only an operator for a == b: the parser sees !(a == b), beginning at the sign."""
        return cursor.kind in (Kind.UNARY_OPERATOR, Kind.UNEXPOSED_EXPR) and self.text.startswith("!=", start)

    def offset(self, location):
        """In signs: the parser counts bytes."""
        return location.offset if self.text.isascii() else len(self.text.encode()[: location.offset].decode())

    def part(self, span):
        return self.text[span[0] : span[1]]

    def told(self, span):
        part = re.sub(r"\s+", " ", self.part(span))
        return part if len(part) <= 70 else part[:67] + "..."

    def before(self, offset):
        return self.text[:offset].rstrip()[-1:]

    def after(self, offset):
        return re.compile(r"\s*(.?)", re.S).match(self.text, offset).group(1)

    def with_semicolon(self, span):
        """The statement up to and with its semicolon, if there is one."""
        rest = re.compile(r"\s*;").match(self.text, span[1])
        return (span[0], rest.end() if rest else span[1])

    def add(self, spot):
        inside_macro = any(b < offset < e for offset, *_ in spot.edits for b, e in self.macros)
        key = (spot.offset, tuple(spot.changes))
        if not inside_macro and key not in self.seen:
            self.seen.add(key)
            self.spots.append(spot)

    # The changes.

    def turn(self, span, change):
        """A condition; whatever can be one."""
        self.add(Spot(span[0], [change]).around(*span, "(static_cast<bool>(", ") != ::mutants::On<{0}>())"))

    def drop_operand(self, span, operator):
        instead = "(::mutants::On<{0}>() || (" if operator == "&&" else "(!::mutants::On<{0}>() && ("
        self.add(Spot(span[0], [f"without {operator} {self.told(span)}"]).around(*span, instead, "))"))

    def edge(self, span, left, right, operator):
        name, other = EDGES[operator]
        begin = self.text.index(operator, left[1])
        spot = Spot(begin, [f"{operator} as {other}: {self.told(span)}"])
        spot.around(*span, f"::mutants::{name}<{{0}}>(", ")").around(*left, "(", ")").around(*right, "(", ")")
        self.add(spot.instead(begin, begin + len(operator), ","))

    def leave_out(self, span):
        statement = self.with_semicolon(span)
        if statement != span:
            spot = Spot(span[0], [f"left out: {self.told(span)}"])
            self.add(spot.around(*statement, "{ if (!::mutants::On<{0}>()) ", " }"))

    def swap_checks(self, checks):
        changes = [f"behind the next check: {self.told(span)}" for span in checks[:-1]]
        spot = Spot(checks[0][0], changes)
        order = f"::mutants::Order<{{0}}, {len(checks)}>()"
        spot.around(checks[0][0], checks[-1][1], f"for (const int turn_ : {order}) {{ ", " }")
        for turn, span in enumerate(checks):
            spot.around(*span, f"{'else ' if turn else ''}if (turn_ == {turn}) {{ ", " }")
        self.add(spot)

    # The way through the code.

    def children(self, cursor):
        return [child for child in cursor.get_children() if self.span(child)]

    def bare(self, cursor):
        """Without what the compiler puts around it."""
        while cursor.kind == Kind.UNEXPOSED_EXPR:
            inner = self.children(cursor)
            if len(inner) != 1:
                break
            cursor = inner[0]
        return cursor

    def without_brackets(self, cursor):
        cursor = self.bare(cursor)
        while cursor.kind == Kind.PAREN_EXPR and self.children(cursor):
            cursor = self.bare(self.children(cursor)[0])
        return cursor

    def operation(self, cursor):
        """(left, operator, right) of an operator with two operands, or nothing."""
        inner = self.children(cursor)
        if cursor.kind == Kind.CALL_EXPR:
            if not cursor.spelling.startswith("operator"):
                return None
            inner = [child for child in inner if not self.bare(child).spelling.startswith("operator")
                     or self.bare(child).kind == Kind.CALL_EXPR]  # fmt: skip
        elif cursor.kind not in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR):
            return None
        if len(inner) != 2:
            return None
        left, right = sorted(inner, key=lambda child: self.span(child))
        operator = self.text[self.span(left)[1] : self.span(right)[0]].strip()
        return (left, operator, right) if re.fullmatch(r"[-+<>=!&|*/%^]+", operator) else None

    def declarations(self, cursor):
        """Namespaces and classes down to functions and variables."""
        if cursor.kind in FUNCTIONS:
            self.function(cursor)
        elif cursor.kind == Kind.VAR_DECL:
            # That something begins at nothing is so before any test could reach it.
            if not re.search(r"(=\s*|\{)(0|false)?\}?$", self.part(self.span(cursor))):
                self.variable(cursor)
        elif cursor.kind == Kind.FIELD_DECL:
            self.field(cursor)
        elif cursor.kind in HOUSES:
            for child in cursor.get_children():
                if self.span(child):
                    self.declarations(child)

    def function(self, cursor):
        name = self.offset(cursor.location)
        for child in self.children(cursor):
            begin = self.span(child)[0]
            # In front of the name stands the type, with the sizes of its arrays.
            if begin >= name and (child.kind == Kind.COMPOUND_STMT or child.kind.is_expression()):
                self.bodies.append(self.span(child))
                self.code(child)

    def field(self, cursor):
        """Most records are given all their values, and begin at nothing only for order's sake."""
        for child in self.children(cursor):
            if self.bare(child).kind == Kind.CXX_BOOL_LITERAL_EXPR and self.part(self.span(child)) == "true":
                self.code(child)

    def variable(self, cursor):
        span = self.span(cursor)
        name = self.offset(cursor.location)
        if re.search(r"\bconstexpr\b", self.text[span[0] : name]):
            self.settled.append(span)
            return
        for child in self.children(cursor):
            begin = self.span(child)[0]
            # In front of the name, and between angular or square brackets, stands the type.
            if begin >= name + len(cursor.spelling) and not (
                self.before(begin) == "[" and child.kind == Kind.INTEGER_LITERAL
            ):
                self.bodies.append(self.span(child))
                self.code(child)

    def code(self, cursor, role=None, of=""):
        """`role` says that what stands there is the condition of something, an operand of && or ||, or what is
        compared, so that another change does the same; `of` is the function that is called around it."""
        kind = cursor.kind
        span = self.span(cursor)
        if not span or kind in SETTLED or kind.is_attribute() or span in self.macros:
            return
        if kind in (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR):
            inner = self.children(cursor)
            for child in inner:
                self.code(child, role if len(inner) == 1 else None, of)
        elif kind in FUNCTIONS or kind in HOUSES:
            self.declarations(cursor)
        elif kind == Kind.VAR_DECL:
            self.variable(cursor)
        elif kind == Kind.COMPOUND_STMT:
            self.block(cursor)
        elif kind in (Kind.IF_STMT, Kind.WHILE_STMT):
            self.branch(cursor)
        elif kind in (Kind.CASE_STMT, Kind.DEFAULT_STMT):
            inner = self.children(cursor)
            if kind == Kind.CASE_STMT and inner:
                self.settled.append(self.span(inner[0]))
                inner = inner[1:]
            for child in inner:
                self.statement(child)
        elif kind in (Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT):
            inner = self.children(cursor)
            for child in inner[:-1]:
                self.code(child)
            for child in inner[-1:]:
                self.statement(child)
        elif kind == Kind.CONDITIONAL_OPERATOR and len(self.children(cursor)) == 3:
            condition, *rest = self.children(cursor)
            self.condition(condition)
            for child in rest:
                self.code(child, None, of)
        else:
            self.expression(cursor, kind, span, role, of)

    def expression(self, cursor, kind, span, role, of):
        operation = self.operation(cursor)
        if operation:
            self.operator(cursor, span, *operation, role, of)
            return
        if kind == Kind.CXX_BOOL_LITERAL_EXPR:
            if role is None and self.part(span) in ("true", "false") and not self.is_measure(of):
                self.turn(span, f"turned: {self.part(span)}")
        elif kind == Kind.INTEGER_LITERAL:
            if role is None and re.fullmatch(r"\d[\dA-Za-z']*", self.part(span)) and not self.is_measure(of):
                self.add(
                    Spot(span[0], [f"one more than {self.part(span)}"]).around(*span, "(", " + ::mutants::On<{0}>())")
                )
        elif kind == Kind.UNARY_OPERATOR and self.is_made_of_equality(cursor, self.offset(cursor.extent.start)):
            for child in self.children(cursor):
                self.code(child, role, of)
        elif kind == Kind.UNARY_OPERATOR and self.text[span[0]] == "!":
            if role is None:
                self.turn(span, f"turned: {self.told(span)}")
            for child in self.children(cursor):
                self.code(child, "operand")
        else:
            called = cursor.spelling if kind == Kind.CALL_EXPR and cursor.spelling not in LISTS else of
            if called in BOUNDS and self.is_measure(of):
                called = of
            # Where -1 stands for none, -2 does as well.
            if kind == Kind.UNARY_OPERATOR and self.part(span) == "-1":
                return
            literals_of_type = kind == Kind.MEMBER_REF_EXPR
            for child in self.children(cursor):
                if not (literals_of_type and self.bare(child).kind == Kind.INTEGER_LITERAL):
                    self.code(child, None, called)

    @staticmethod
    def is_measure(called):
        return bool(LAYOUT.match(called) or MEASURES.match(called))

    def operator(self, cursor, span, left, operator, right, role, of):
        inner = None
        if operator in ("&&", "||"):
            inner = "operand"
            for operand in (left, right):
                within = self.operation(self.bare(operand))
                if not within or within[1] != operator:
                    self.drop_operand(self.span(operand), operator)
        elif operator in EDGES:
            inner = "compared"
            if cursor.type.get_canonical().kind in (TypeKind.BOOL, TypeKind.DEPENDENT, TypeKind.UNEXPOSED):
                self.edge(span, self.span(left), self.span(right), operator)
        elif operator in ("==", "!="):
            inner = "compared"
            if role is None:
                self.turn(span, f"turned: {self.told(span)}")
        elif operator in ("+", "-", "+=", "-=") and not self.is_measure(of):
            kinds = {side.type.get_canonical().kind for side in (left, right)}
            if kinds <= NUMBERS:
                other = {"+": "-", "-": "+", "+=": "-=", "-=": "+="}[operator]
                self.add(
                    Spot(self.span(left)[1], [f"{operator} as {other}: {self.told(span)}"]).around(
                        *self.span(right), " ::mutants::Turned<{0}>(", ")"
                    )
                )
        self.code(left, inner, of)
        self.code(right, inner, of)

    def condition(self, cursor, name="turned"):
        """An && or an || is changed by its operands."""
        bare = self.without_brackets(cursor)
        operation = self.operation(bare)
        if not operation or operation[1] not in ("&&", "||"):
            self.turn(self.span(cursor), f"{name}: {self.told(self.span(cursor))}")
        self.code(cursor, "condition")

    def branch(self, cursor):
        begin = self.span(cursor)[0]
        inner = self.children(cursor)
        condition = 0
        while condition < len(inner) and inner[condition].kind in (Kind.DECL_STMT, Kind.VAR_DECL):
            self.code(inner[condition])
            condition += 1
        if condition >= len(inner):
            return
        span = self.span(inner[condition])
        settled = re.match(r"if\s+constexpr\b", self.text[begin : begin + 20])
        in_full = self.before(span[0]) in "(;" and self.after(span[1]) == ")"
        if in_full and not settled:
            if cursor.kind == Kind.WHILE_STMT:
                # Turned round it might never end.
                self.add(
                    Spot(span[0], [f"never: {self.told(span)}"]).around(*span, "!::mutants::On<{0}>() && (", ")")
                )
                self.code(inner[condition], "condition")
            else:
                self.condition(inner[condition])
        for child in inner[condition + 1 :]:
            self.statement(child)

    def condition_and_answer(self, check):
        inner = [child for child in self.children(check) if child.kind not in (Kind.DECL_STMT, Kind.VAR_DECL)]
        return self.part(self.span(inner[0])), re.sub(r"[\s{}]+", " ", self.part(self.span(inner[1]))).strip(" ;")

    def may_change_places(self, check, other):
        """Not where one value is compared with different ones, nor where plain values lead to one answer: then it
        does not matter which is looked at first."""
        (one, answer), (two, other_answer) = self.condition_and_answer(check), self.condition_and_answer(other)
        values, others = values_of(one), values_of(two)
        if values and others and values[0] == others[0] and not values[1] & others[1]:
            return False
        return answer != other_answer or bool(re.search(r"[(\[*]|->", one + two))

    def block(self, cursor):
        checks = []
        last = None
        inner = self.children(cursor)
        for child in [*inner, None]:
            if child is not None and self.is_check(child):
                if checks and not self.may_change_places(last, child):
                    if len(checks) > 1:
                        self.swap_checks(checks)
                    checks = []
                last = child
                body = self.children(child)[-1]
                span = self.span(child)
                checks.append(span if body.kind == Kind.COMPOUND_STMT else self.with_semicolon(span))
                continue
            if len(checks) > 1:
                self.swap_checks(checks)
            checks = []
        for child in inner:
            self.statement(child)

    def is_check(self, cursor):
        """An if without else that ends in a return, and in no other way out of a loop around it."""
        if cursor.kind != Kind.IF_STMT or re.match(r"if\s+constexpr\b", self.part(self.span(cursor))):
            return False
        inner = [child for child in self.children(cursor) if child.kind not in (Kind.DECL_STMT, Kind.VAR_DECL)]
        if len(inner) != 2:
            return False
        body = inner[1]
        statements = self.children(body) if body.kind == Kind.COMPOUND_STMT else [body]
        return (
            bool(statements)
            and statements[-1].kind == Kind.RETURN_STMT
            and not re.search(r"\b(break|continue)\b", self.part(self.span(body)))
        )

    def statement(self, cursor):
        span = self.span(cursor)
        if not span:
            return
        bare = self.bare(cursor)
        if bare.kind in EXPRESSIONS_THAT_DO and not (bare.kind == Kind.CALL_EXPR and LAYOUT.match(bare.spelling)):
            if not any(b <= span[0] < e for b, e in self.macros):
                self.leave_out(span)
        elif cursor.kind == Kind.CONTINUE_STMT or (cursor.kind == Kind.RETURN_STMT and not self.children(cursor)):
            self.leave_out(span)
        if bare.kind == Kind.UNARY_OPERATOR:
            for child in self.children(bare):
                self.code(child)
        else:
            self.code(cursor)

    def texts(self):
        """The texts that are shown, where code runs."""
        for found in LITERALS.finditer(self.text):
            if not found["text"]:
                continue
            begin, end = found.span()
            in_code = any(b <= begin < e for b, e in self.bodies) and not any(b <= begin < e for b, e in self.settled)
            shown = "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', found["text"])).replace('\\"', '"')
            if not in_code or not is_shown(shown.replace("\\n", " ")):
                continue
            wrapper = re.search(r"\b(QStringLiteral|QLatin1String)\s*\(\s*$", self.text[:begin])
            if wrapper:
                closing = re.compile(r"\s*\)").match(self.text, end)
                if not closing:
                    continue
                begin, end = wrapper.start(), closing.end()
            elif any(b <= begin < e for b, e in self.macros):
                continue
            spot = Spot(begin, [f'one sign more: "{shown[:60]}"'])
            self.add(spot.around(begin, end, "::mutants::Text<{0}>(", ")"))


def spots_in(unit, names):
    """The spots of each of these files, as this parsed unit sees them: {name: (text, spots)}."""
    finders = {}
    macros = {}
    declarations = []
    for cursor in unit.cursor.get_children():
        file = cursor.location.file
        if not file or file.name not in names:
            continue
        if cursor.kind == Kind.MACRO_INSTANTIATION:
            macros.setdefault(file.name, []).append((cursor.extent.start.offset, cursor.extent.end.offset))
        elif cursor.kind not in (Kind.MACRO_DEFINITION, Kind.INCLUSION_DIRECTIVE):
            declarations.append((file.name, cursor))
    for name, cursor in declarations:
        if name not in finders:
            with open(name, encoding="utf-8", newline="") as file:
                finders[name] = Finder(name, file.read(), macros.get(name, []))
        finders[name].declarations(cursor)
    for finder in finders.values():
        finder.texts()
    return {name: (finder.text, finder.spots) for name, finder in finders.items()}
