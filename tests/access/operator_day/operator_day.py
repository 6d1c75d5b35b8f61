#!/usr/bin/python3
"""Does an operator's day with the built programs over the accessibility bus.

operator_day.py PROGRAMS RESULTS name|keyboard

PROGRAMS is the folder of the programs. In RESULTS a failure leaves a picture of the screen and what an
assistive program knew of the windows. The exit code tells whether the day went well.
"""

import sys
import time
import traceback
from pathlib import Path

sys.dont_write_bytecode = True

from desk import Desk  # noqa: E402


def run(desk, way):
    # The library looks for its bus when it is first used, so the session comes first.
    import seen
    from by_keyboard import ByKeyboard
    from by_name import ByName
    seen.start()
    for step in {"name": ByName, "keyboard": ByKeyboard}[way](desk).steps():
        begin = time.monotonic()
        step()
        print(f"{step.__name__}: done in {time.monotonic() - begin:.1f} s", flush=True)


def keep_evidence(desk, results):
    results.mkdir(parents=True, exist_ok=True)
    try:
        import seen
        (results / "windows.txt").write_text("\n".join(seen.dump()) + "\n", encoding="utf-8")
        desk.picture(results / "screen.png")
    except Exception:
        traceback.print_exc()
    for log in desk.folder.glob("*.log"):
        content = log.read_text(encoding="utf-8", errors="replace").strip()
        if content:
            print(f"--- {log.name}\n{content}")
    print(f"--- Picture and objects: {results}")
    print((results / "windows.txt").read_text(encoding="utf-8"))


def main():
    programs, results, way = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
    with Desk(programs) as desk:
        try:
            run(desk, way)
        except Exception:
            traceback.print_exc(file=sys.stdout)
            keep_evidence(desk, results)
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
