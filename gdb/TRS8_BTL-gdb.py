# SPDX-License-Identifier: MIT
"""Shows the library's values in gdb: strings, lists, vectors, maps, sets, variants, dates, flags and arrays.

gdb loads it together with the library; `info pretty-printer` names it TRS8_BTL. By hand: `source FILE`.

String lists and arrays in variants are classes with virtual functions, which the compiler describes in the library's
own symbols alone.
"""

import datetime

import gdb
import gdb.printing

NAMESPACES = ("System::", "Sysutils::", "Classes::", "UTL::", "BTL::", "WIN::", "PROP::")
RAW_CODE_PAGE = 65535
UTF8_CODE_PAGE = 65001
FIRST_DAY = datetime.datetime(1899, 12, 30)
MILLISECONDS_PER_DAY = 86_400_000


def plain_type(value_type):
    return value_type.strip_typedefs().unqualified()


def template_name(value_type):
    return (value_type.name or "").split("<", 1)[0]


def base_types(value_type):
    return [field.type for field in value_type.fields() if field.is_base_class]


def only_pointer(value):
    """The pointer inside a smart pointer, however deep the standard library keeps it."""
    for field in plain_type(value.type).fields():
        if not hasattr(field, "bitpos"):
            continue
        member = value[field]
        code = plain_type(member.type).code
        if code == gdb.TYPE_CODE_PTR:
            return member
        if code == gdb.TYPE_CODE_STRUCT:
            pointer = only_pointer(member)
            if pointer is not None:
                return pointer
    return None


def vector_items(vector):
    begin = vector["_M_impl"]["_M_start"]
    return array_items(begin, int(vector["_M_impl"]["_M_finish"] - begin))


def array_items(begin, count):
    for index in range(count):
        yield (begin + index).dereference()


def ancestor(value_type, accepts):
    """The type itself or the nearest of its bases that `accepts` takes."""
    value_type = plain_type(value_type)
    if accepts(template_name(value_type)):
        return value_type
    return next(filter(None, (ancestor(base, accepts) for base in base_types(value_type))), None)


def standard_base(value):
    """The value as the container of the standard library that its class is derived from."""
    return value.cast(ancestor(value.type, lambda name: name.startswith("std::")))


def date_text(days):
    """A date, a time of day or both, rounded to the millisecond."""
    try:
        day = int(days)
        milliseconds = int(abs(days - day) * MILLISECONDS_PER_DAY + 0.5)
        time = FIRST_DAY + datetime.timedelta(days=day, milliseconds=milliseconds)
    except (OverflowError, ValueError):
        return f"no date ({days})"
    clock = time.strftime("%H:%M:%S")
    if time.microsecond:
        clock += f".{time.microsecond // 1000:03d}"
    if time.date() == FIRST_DAY.date():
        return clock
    date = f"{time.year:04d}-{time.month:02d}-{time.day:02d}"
    return date if milliseconds % MILLISECONDS_PER_DAY == 0 else f"{date} {clock}"


class Text:
    """A text that a library class stands for."""

    def __init__(self, text):
        self.text = text

    def to_string(self):
        return self.text


class QuotedText(Text):
    def display_hint(self):
        return "string"


class Items:
    """Values in a row, with their index."""

    def __init__(self, label, count, items):
        self.label = f"{label} of {count}"
        self.items = items

    def to_string(self):
        return self.label

    def children(self):
        for index, item in enumerate(self.items):
            yield f"[{index}]", item


class NamedItems(Items):
    def children(self):
        return iter(self.items)


class Map(NamedItems):
    """Keys and values by turns."""

    def display_hint(self):
        return "map"


def shared_text(holder, encoding):
    """Shows the buffer of a `GSharedText`: its length stands in the header before the characters."""
    characters = holder["mText"]
    if int(characters) == 0:
        return characters.type.target().array(0, -1)
    header = gdb.lookup_type(plain_type(holder.type).name + "::THeader")
    size = (header.sizeof + 15) // 16 * 16
    # A text whose begin was taken away may stand at any place; its header is aligned.
    aligned = characters.cast(gdb.lookup_type("char").pointer()) - int(characters) % 4
    bytes_before = aligned - size
    length = int(bytes_before.cast(header.pointer())["length"])
    return characters.lazy_string(encoding, length) if encoding else characters.lazy_string(length=length)


def wide_string(value, _label):
    text = value["mText"]
    if int(text["mText"]) == 0:
        return Text('u""')
    return QuotedText(shared_text(text, ""))


def narrow_string(value, _label):
    text = value["mText"]
    if int(text["mText"]) == 0:
        return Text('""')
    code_page = int(plain_type(value.type).template_argument(0))
    names = {RAW_CODE_PAGE: "", UTF8_CODE_PAGE: "UTF-8"}
    return QuotedText(shared_text(text, names.get(code_page, f"CP{code_page}")))


def simple_string(value, _label):
    text = value["mText"]
    return Text('""') if int(text) == 0 else QuotedText(text.lazy_string())


def standard_string(value, _label):
    return Text(standard_base(value))


def wrapped_string(value, _label):
    return Text(value["mText"])


def string_list(value, label):
    """Shows a `TStringList`, also where the program knows only that it is some `TStrings`."""
    list_type = ancestor(value.dynamic_type, lambda name: name == "Classes::TStringList")
    if list_type is None:
        return None
    if not list_type.fields():
        return Text(f"{label}, shown with the library's symbols")
    whole = value.cast(value.dynamic_type).cast(list_type)
    lines = list(vector_items(whole["mItems"]))
    pending = only_pointer(whole["mPending"])
    if int(pending) != 0:
        arrived = list(vector_items(pending.dereference()["mItems"]))
        for before, line in enumerate(vector_items(pending.dereference()["mLines"])):
            lines.insert(int(line["place"]) + before, arrived[int(line["number"])])

    def children():
        for index, line in enumerate(lines):
            yield f"[{index}]", line["String"]
            if int(line["Object"]) != 0:
                yield f"[{index}].Object", line["Object"]

    return NamedItems(label, len(lines), children())


def list_behind(pointer_of):
    def show(value, label):
        pointer = pointer_of(value)
        return Text(f"{label} of no list") if int(pointer) == 0 else string_list(pointer.dereference(), label)

    return show


def simple_vector(value, label):
    count = int(value["mSize"])
    return Items(label, count, array_items(value["mItems"]["mItems"], count))


def vector_in(member):
    def show(value, label):
        vector = value[member] if member else standard_base(value)
        items = list(vector_items(vector))
        return Items(label, len(items), items)

    return show


def small_variants(value, label):
    block = value["mItems"]["mBlock"]
    items = list(vector_items(block["list"])) if int(block) else []
    return Items(label, len(items), items)


def pair_list(value, label):
    pairs = list(vector_items(value["mPairs"]))
    return Map(label, len(pairs), (side for pair in pairs for side in (("", pair["first"]), ("", pair["second"]))))


def name_value_pairs(value, label):
    pairs = list(vector_items(standard_base(value)))
    return Map(label, len(pairs), (side for pair in pairs for side in (("", pair["name"]), ("", pair["value"]))))


def tree_in(member, kind):
    """A map or set of the standard library, walked by the printers that came with that."""

    def show(value, label):
        tree = value[member] if member else standard_base(value)
        printer = gdb.default_visualizer(tree)
        count = int(tree["_M_t"]["_M_impl"]["_M_node_count"])
        return kind(label, count, printer.children() if printer else [("values", tree)])

    return show


def dynamic_array(value, label):
    block = value["mBlock"]["mBlock"]
    if int(block) == 0:
        return Items(label, 0, [])
    count = int(block["length"])
    return Items(label, count, array_items(block["items"], count))


def enumeration_set(value, _label):
    value_type = plain_type(value.type)
    element = plain_type(value_type.template_argument(0))
    first, last = int(value_type.template_argument(1)), int(value_type.template_argument(2))
    words = value["mBits"]["_M_w"]
    width = 64
    if words.type.code == gdb.TYPE_CODE_ARRAY:
        bits = sum(int(words[index]) << width * index for index in range(words.type.range()[1] + 1))
    else:
        bits = int(words)
    names = {}
    if element.code == gdb.TYPE_CODE_ENUM:
        names = {field.enumval: field.name.split("::")[-1] for field in element.fields()}
    members = [number for number in range(first, last + 1) if bits >> (number - first) & 1]
    return Text("[" + ", ".join(names.get(number, str(number)) for number in members) + "]")


def flags(value, _label):
    count = int(value["mCount"])
    shown = min(count, gdb.parameter("print elements") or count)
    start = value["mBytes"]["_M_impl"]["_M_start"]
    digits = "".join(str(int(start[index // 8]) >> index % 8 & 1) for index in range(shown))
    groups = " ".join(digits[at : at + 4] for at in range(0, shown, 4))
    return Text(f"{count} flags: {groups}" + ("..." if shown < count else ""))


def date_time(value, _label):
    return Text(date_text(float(value["Val"])))


def currency_text(units):
    whole, fraction = divmod(abs(units), 10000)
    return f"{'-' if units < 0 else ''}{whole}.{fraction:04d}"


def currency(value, _label):
    return Text(currency_text(int(value["Val"])))


def held_alternative(variant):
    """The value that a `std::variant` holds."""
    index = int(variant["_M_index"])
    storage = variant["_M_u"]
    for _ in range(index):
        storage = storage["_M_rest"]
    held = plain_type(variant.type).template_argument(index)
    return storage["_M_first"].address.cast(held.pointer()).dereference()


VARIANT_EMPTY, VARIANT_NULL, VARIANT_DATE, VARIANT_BOOLEAN, VARIANT_ARRAY = 0, 1, 7, 11, 0x2000


def variant(value, label):
    code = int(value["mType"])
    if code == VARIANT_EMPTY:
        return Text("Empty")
    if code == VARIANT_NULL:
        return Text("Null")
    held = held_alternative(value["mValue"])
    if code & VARIANT_ARRAY:
        block = held["mBlock"].dereference()
        block = block.cast(block.dynamic_type)
        if plain_type(block.type).name == "System::TSharedBlock":
            return Text("array")
        items = list(vector_items(held_alternative(block["elements"])))
        return Items(label, len(items), items)
    if code == VARIANT_DATE:
        return Text(date_text(float(held)))
    if code == VARIANT_BOOLEAN:
        return Text("True" if int(held) else "False")
    return Text(held)


SMALL_VARIANT_KINDS = ("Null", "Bool", "Int", "Int64", "Double", "DateTime", "AString", "WString", "Array")


def small_variant(value, label):
    data = value["mData"]
    # By its place behind the object's table of functions: its class is known only with the library's symbols.
    characters = value["mImp"].cast(gdb.lookup_type("char").pointer())
    kind = SMALL_VARIANT_KINDS[int((characters + characters.type.sizeof).cast(gdb.lookup_type("int").pointer())[0])]
    if kind == "Null":
        return Text("Null")
    if kind == "DateTime":
        return Text(date_text(float(data["Days"])))
    if kind == "Array":
        return small_variants(data["Array"].dereference(), label)
    if kind in ("AString", "WString"):
        text = data[kind]
        if int(text["Text"]) == 0:
            return Text('""' if kind == "AString" else 'u""')
        return QuotedText(text["Text"].lazy_string(length=int(text["Length"])))
    return Text(data[kind])


PRINTERS = {
    "System::UnicodeString": wide_string,
    "System::AnsiStringT": narrow_string,
    "System::DynamicArray": dynamic_array,
    "System::Set": enumeration_set,
    "System::TDateTime": date_time,
    "System::Currency": currency,
    "System::Variant": variant,
    "Classes::TStrings": string_list,
    "UTL::GSimpleVector": simple_vector,
    "UTL::CFlags": flags,
    "UTL::CSimpleString": simple_string,
    "UTL::CString": standard_string,
    "UTL::CVariant": small_variant,
    "UTL::CVariants": small_variants,
    "BTL::GStringValue": wrapped_string,
    "BTL::MStringList": list_behind(lambda value: value["mList"].referenced_value()),
    "BTL::CStrSet": list_behind(lambda value: only_pointer(value["mStrings"])),
    "BTL::CStringPairs": pair_list,
    "BTL::CNameValuePairs": name_value_pairs,
    "BTL::CVariants": vector_in(None),
    "BTL::GVariantMap": tree_in(None, Map),
    "BTL::CStrStrMap": tree_in(None, Map),
    "BTL::GStringIntegerMap": tree_in("mValues", Map),
    "BTL::CI64StrMap": tree_in("mTexts", Map),
    "BTL::CStringSet": tree_in(None, NamedItems),
    "BTL::GIntegerSet": tree_in(None, NamedItems),
}


class LibraryPrinter(gdb.printing.PrettyPrinter):
    """Finds the printer of a class of the library, or of the nearest class that it is derived from."""

    def __call__(self, value):
        if value.type.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
            value = value.referenced_value()
        value_type = plain_type(value.type)
        if value_type.code != gdb.TYPE_CODE_STRUCT or not (value_type.name or "").startswith(NAMESPACES):
            return None
        known_type = ancestor(value_type, PRINTERS.__contains__)
        if known_type is None:
            return None
        known_value = value if known_type == value_type else value.cast(known_type)
        return PRINTERS[template_name(known_type)](known_value, value_type.name)


gdb.printing.register_pretty_printer(gdb.current_objfile(), LibraryPrinter("TRS8_BTL"), replace=True)
