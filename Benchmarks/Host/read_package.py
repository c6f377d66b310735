"""read_package.py PACKAGE: prints a package's text, as a short script does it."""

import plistlib
import sys
import zipfile


def text_of(path):
    with zipfile.ZipFile(path) as package:
        header = plistlib.loads(package.read("contents.plist"))["header"]
        if header["compatibility_version"] >= 3:
            sys.exit("needs a newer reader")
        archive = plistlib.loads(package.read("text.plist"))
    objects = archive["$objects"]
    root = objects[archive["$top"]["root"].data]
    return objects[root["NSString"].data]


sys.stdout.write(text_of(sys.argv[1]))
