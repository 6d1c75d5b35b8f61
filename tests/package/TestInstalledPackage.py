"""What is installed, tried as a host developer finds it: moved to another place, by CMake and by pkg-config."""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

OPTIONS = argparse.Namespace()


def run(*command, **environment):
    """Runs a command and gives what it printed; what fails is told with all its output."""
    words = [str(word) for word in command]
    outcome = subprocess.run(
        words, env={**os.environ, **environment}, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
        timeout=300, check=False)
    if outcome.returncode != 0:
        raise AssertionError(
            f"{' '.join(words)} ended with {outcome.returncode}:\n{outcome.stdout}{outcome.stderr}")
    return outcome.stdout


class TestInstalledPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="zelka-package-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        first = cls.folder / "first"
        run("cmake", "--install", OPTIONS.build, "--prefix", first)
        # Nothing may remember where it was installed first.
        cls.prefix = cls.folder / "prefix"
        first.rename(cls.prefix)

        cls.headers = cls.prefix / "include/ZelkaBrowser"
        cls.library = cls.prefix / OPTIONS.lib / "libzelkabrowser.so"
        cls.home = cls.folder / "home"
        cls.database = cls.folder / "demo.mdb"
        cls.environment = {
            "HOME": str(cls.home), "XDG_CONFIG_HOME": str(cls.home / "config"), "QT_QPA_PLATFORM": "offscreen",
            "LC_ALL": "C.UTF-8", "PKG_CONFIG_PATH": str(cls.prefix / OPTIONS.lib / "pkgconfig")}
        run(cls.prefix / OPTIONS.bin / "zelka", "db", "init", "--demo",
            **{**cls.environment, "ZELKA_DBS32": str(cls.database)})

    def pkg_config(self, *arguments):
        return run("pkg-config", *arguments, **self.environment).split()

    def build_example(self, name):
        """Builds an example against the installed package and gives its program."""
        build = self.folder / name
        run("cmake", "-G", "Ninja", "-S", OPTIONS.source / "examples" / name, "-B", build,
            f"-DCMAKE_PREFIX_PATH={self.prefix}", f"-DCMAKE_CXX_COMPILER={OPTIONS.compiler}")
        run("cmake", "--build", build)
        return build / name

    def check_picks_first_node(self, program):
        picked = run(program, "--database", self.database, "--self-test", **self.environment)

        self.assertRegex(picked, r"^[^:\n]+: WP=\S+,WP=\S+\n$")

    def test_Example_FromCode_PicksANode(self):
        self.check_picks_first_node(self.build_example("host-code"))

    def test_Example_FromForm_PicksANode(self):
        self.check_picks_first_node(self.build_example("host-form"))

    def test_FirstUse_NothingRegistered_RegistersTheLibrary(self):
        home = self.folder / "new-home"
        code = self.folder / "start.cpp"
        code.write_text("#include <ZelkaBrowser/Zelka.h>\n#include <QApplication>\n#include <cstdio>\n"
                        "int main(int count, char** words) { QApplication application(count, words);\n"
                        "std::puts(qPrintable(Zelka::Version())); }\n")
        program = self.folder / "start"
        run(OPTIONS.compiler, "-std=c++17", "-fPIC", code, "-o", program,
            *self.pkg_config("--cflags", "--libs", "ZelkaBrowser"))

        printed = run(program, **{**self.environment, "XDG_CONFIG_HOME": str(home),
                                  "LD_LIBRARY_PATH": str(self.library.parent)})

        self.assertEqual(printed, OPTIONS.version + "\n")
        registered = (home / "Zelka/NamedValues.ini").read_text()
        self.assertIn(f"InprocServer32={self.library}.4\n", registered)

    def test_PkgConfig_Asked_TellsVersionAndMovedPlace(self):
        self.assertEqual(self.pkg_config("--modversion", "ZelkaBrowser"), [OPTIONS.version])
        places = [os.path.normpath(word[2:]) for word in self.pkg_config("--libs-only-L", "ZelkaBrowser")]
        self.assertIn(str(self.library.parent), places)

    def test_CMakePackage_Version_AcceptsItsMajorAlone(self):
        file = self.prefix / OPTIONS.lib / "cmake/ZelkaBrowser/ZelkaBrowserConfigVersion.cmake"
        for asked, answer in (("4.2", "YES"), ("4.0", "YES"), ("4.9", ""), ("5.0", ""), ("3.9", "")):
            script = self.folder / "asked.cmake"
            script.write_text(
                f"set(PACKAGE_FIND_VERSION {asked})\nset(PACKAGE_FIND_VERSION_MAJOR {asked[0]})\n"
                f"include({file})\nif(PACKAGE_VERSION_COMPATIBLE)\nmessage(STATUS YES)\nendif()\n")
            with self.subTest(asked=asked):
                self.assertEqual("YES" if "YES" in run("cmake", "-P", script) else "", answer)

    def test_Headers_Each_CompilesAlone(self):
        flags = run("pkg-config", "--cflags", "Qt6Widgets").split()
        headers = sorted(self.headers.iterdir())
        self.assertEqual([header.name for header in headers],
                         ["Export.h", "PropertyBag.h", "SettingsPropertyBag.h", "T4ZelkaBrowser.h", "Zelka.h"])
        for header in headers:
            with self.subTest(header=header.name):
                run(OPTIONS.compiler, "-std=c++17", "-fPIC", "-Wall", "-Wextra", "-Werror", "-fsyntax-only", "-x",
                    "c++", "-include", header, f"-I{self.headers.parent}", *flags, "/dev/null")

    def test_Headers_Includes_AreQtsOrInstalled(self):
        for header in self.headers.iterdir():
            text = header.read_text()
            for included in re.findall(r'#\s*include\s*([<"].*[>"])', text):
                with self.subTest(header=header.name, included=included):
                    self.assertRegex(included, r"^<(Q\w+|\w+|ZelkaBrowser/\w+\.h)>$")
                    if "ZelkaBrowser" in included:
                        self.assertTrue((self.headers.parent / included[1:-1]).exists())

    def test_Library_Exports_AreThePublicNames(self):
        symbols = run("nm", "-D", "-C", "--defined-only", self.library).splitlines()
        names = [line.split(" ", 2)[2] for line in symbols]
        public = re.compile(r"((typeinfo|typeinfo name|vtable) for |non-virtual thunk to )?"
                            r"(T4ZelkaBrowser|PropertyBag|SettingsPropertyBag|Zelka)\b|qt_plugin_|ZELKABROWSER_4")
        strange = [name for name in names if not public.match(name)]

        self.assertEqual(strange, [])
        self.assertIn("T4ZelkaBrowser::T4ZelkaBrowser(QWidget*)@@ZELKABROWSER_4", names)

    def test_Library_Name_CarriesItsMajorVersion(self):
        dynamic = run("readelf", "-d", self.library)

        self.assertIn("Library soname: [libzelkabrowser.so.4]", dynamic)
        self.assertEqual(self.library.resolve().name, f"libzelkabrowser.so.{OPTIONS.version}")

    def test_Plugins_Installed_StandInQtsFolders(self):
        plugins = self.prefix / OPTIONS.plugins
        self.assertEqual(sorted(str(file.relative_to(plugins)) for file in plugins.rglob("*.so")),
                         ["designer/zelkabrowser_designer.so", "zelka/zelka_hvxdb_plugin.so",
                          "zelka/zelka_hvxutil_plugin.so", "zelka/zelka_syncconn_plugin.so"])
        # Through its own path, not the one that it was built with.
        self.assertIn(f"libzelkabrowser.so.4 => {self.library}.4".replace("//", "/"),
                      re.sub(r"(?<=> )(\S+)", lambda found: os.path.normpath(found[1]),
                             run("ldd", plugins / "designer/zelkabrowser_designer.so")))

    def test_Files_All_NameNoFolderOfTheBuild(self):
        for file in self.prefix.rglob("*"):
            if file.suffix in (".cmake", ".pc", ".h"):
                with self.subTest(file=file.name):
                    text = file.read_text()
                    for place in (OPTIONS.build, OPTIONS.source, self.folder):
                        self.assertNotIn(str(place), text)

    def test_Workstation_Installed_Starts(self):
        printed = run(self.prefix / OPTIONS.bin / "zelka-workstation", "--version", **self.environment)

        self.assertIn(OPTIONS.version, printed)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    for option in ("build", "source"):
        parser.add_argument(f"--{option}", type=pathlib.Path)
    for option in ("compiler", "version", "bin", "lib", "plugins"):
        parser.add_argument(f"--{option}")
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["TestInstalledPackage", "-v", *rest])
