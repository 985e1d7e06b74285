"""What these tests need from the machine; importing this ends the program if something is missing."""

import os
import shutil
import sys

# What the tests run or read, and the Debian package that has it.
TOOLS = {"Xvfb": "xvfb", "dbus-daemon": "dbus", "openbox": "openbox", "xdotool": "xdotool", "xclip": "xclip",
         "wmf2gd": "libwmf-bin", "pdftotext": "poppler-utils", "localedef": "libc-bin", "locale": "libc-bin"}
FILES = {"/usr/share/dbus-1/services/org.a11y.Bus.service": "at-spi2-core",
         "/usr/share/i18n/locales/de_DE": "locales"}


def missing_packages():
    packages = {package for tool, package in TOOLS.items() if shutil.which(tool) is None}
    packages |= {package for path, package in FILES.items() if not os.path.exists(path)}
    try:
        import gi
        gi.require_version("Atspi", "2.0")
    except ImportError:
        packages |= {"python3-gi", "gir1.2-atspi-2.0"}
    except ValueError:
        packages.add("gir1.2-atspi-2.0")
    return sorted(packages)


missing = missing_packages()
if missing:
    sys.exit("The tests in a real window need these Debian packages, which scripts/setup installs: " +
             ", ".join(missing))
