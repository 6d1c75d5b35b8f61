"""Keys pressed on the X server's keyboard, as the operator's fingers do."""

import subprocess


def keys(*names):
    """Presses keys or combinations, such as "alt+a", one after the other."""
    subprocess.run(["xdotool", "key", "--delay", "20", *names], check=True, timeout=60)


def type_text(content):
    subprocess.run(["xdotool", "type", "--delay", "20", content], check=True, timeout=60)
