"""Prints what keyed archives hold, as another reader sees it: one line of JSON for each file.

The archives are read with plistlib, which knows nothing of their objects; references are followed
here. The JSON is that of Tests/Support/GraphJson.h.
"""

import json
import plistlib
import sys


def read_number(data, at):
    number = shift = 0
    while True:
        byte = data[at]
        at += 1
        number |= (byte & 0x7F) << shift
        shift += 7
        if byte < 0x80:
            return number, at


class Archive:
    def __init__(self, path):
        with open(path, "rb") as file:
            frame = plistlib.load(file)
        self.objects = frame["$objects"]
        self.root = frame["$top"]["root"]

    def reference(self, value):
        if isinstance(value, plistlib.UID):
            return value.data
        # plistlib leaves references in XML as they stand there.
        if isinstance(value, dict) and list(value) == ["CF$UID"]:
            return value["CF$UID"]
        return None

    def entry(self, value):
        number = self.reference(value)
        return value if number is None else self.objects[number]

    def class_name(self, entry):
        return self.entry(entry["$class"])["$classname"]

    def describe(self, value):
        if self.reference(value) == 0:
            return None
        entry = self.entry(value)
        if isinstance(entry, bytes):
            shown = entry[:24].hex() + ("..." if len(entry) > 24 else "")
            return f"<{len(entry)} bytes: {shown}>"
        if isinstance(entry, list):
            return [self.describe(element) for element in entry]
        if not isinstance(entry, dict):
            return entry
        if "$class" not in entry:
            return {key: self.describe(element) for key, element in entry.items()}
        return self.describe_object(self.class_name(entry), entry)

    def describe_object(self, name, entry):
        if name == "NSMutableString":
            return entry["NS.string"]
        if name == "NSDate":
            return {"<date>": entry["NS.time"]}
        if name == "NSArray":
            return self.describe(entry["NS.objects"])
        if name == "NSDictionary":
            keys = [self.describe(key) for key in entry["NS.keys"]]
            return dict(zip(keys, self.describe(entry["NS.objects"])))
        if name == "NSAttributedString":
            return self.describe_text(entry)
        fields = {key: self.describe(part) for key, part in entry.items() if key != "$class"}
        if list(fields) == ["NS.objects"]:
            fields = fields["NS.objects"]
        return {f"<{name}>": fields} if fields else f"<{name}>"

    def describe_text(self, entry):
        text = self.describe(entry["NSString"])
        length = len(text.encode("utf-16-le")) // 2
        attributes = []
        lengths = []
        if "NSAttributeInfo" in entry:
            sets = self.describe(entry["NSAttributes"])
            table = self.entry(entry["NSAttributeInfo"])
            at = 0
            while at < len(table):
                run, at = read_number(table, at)
                index, at = read_number(table, at)
                lengths.append(run)
                attributes.append(sets[index])
        elif "NSAttributes" in entry:
            lengths.append(length)
            attributes.append(self.describe(entry["NSAttributes"]))
        assert sum(lengths) == length
        runs = [[run, sorted(names)] for run, names in zip(lengths, attributes)]
        return {"<text>": {"text": text, "runs": runs}, "attributes": attributes}


for argument in sys.argv[1:]:
    archive = Archive(argument)
    print(json.dumps(archive.describe(archive.root)))
