"""Shows the core types in gdb as a reader of the code thinks of them:

    (gdb) source tools/gdb/printers.py
    (gdb) print s.txtWA(3)       txtWA(3) "45"
    (gdb) print angle            failure
    (gdb) print sum              kept 12.5
    (gdb) print mask             "#0.00"_mask
"""
import gdb


def text_of(value):
    """Of a std::string or std::string_view, in the station's code page."""
    names = [field.name for field in value.type.strip_typedefs().fields()]
    if "_M_str" in names:
        start, length = value["_M_str"], value["_M_len"]
    else:
        start, length = value["_M_dataplus"]["_M_p"], value["_M_string_length"]
    return start.string("cp1252", "replace", int(length)) if length else ""


def number_text(value):
    return "%.15g" % float(value)


class Number:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        return number_text(self.value["value_"]) if self.value["good_"] else "failure"


class Kept:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "kept " + number_text(self.value["value_"])


class Mask:
    """Places behind a # in front of the point leave no trace, so one # stands for them."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        zeros, decimals = int(self.value["integerZeros"]), int(self.value["decimals"])
        kinds = int(self.value["zeroDecimals"])
        behind = "".join("0" if kinds >> place & 1 else "#" for place in range(decimals))
        return '"#' + "0" * zeros + ("." if self.value["point"] else "") + behind + '"_mask'


class Field:
    """Name and text, behind them what a window shows that is not as usual."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        if not self.value["owner_"]:
            return "no field: its array has no such index"
        row = self.value["row_"].dereference()
        name = text_of(row["name"])
        if int(row["member"]["_M_index"]) == 1:
            name += "(%d)" % int(self.value["index_"])
        looks = self.value["looks_"]
        mark = str(looks["mark"]).rsplit("::", 1)[-1]
        unusual = [] if mark == "Plain" else [mark]
        if not looks["enabled"]:
            unusual.append("disabled")
        if not looks["shown"]:
            unusual.append("hidden")
        return '%s "%s"%s' % (name, text_of(self.value["text_"]), "".join(", " + each for each in unusual))


printers = gdb.printing.RegexpCollectionPrettyPrinter("torvane")
for kind in (Number, Kept, Mask, Field):
    printers.add_printer(kind.__name__, "^torvane::" + kind.__name__ + "$", kind)
gdb.printing.register_pretty_printer(gdb.current_objfile(), printers, replace=True)
