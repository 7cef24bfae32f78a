#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""consumer.py SETTINGS CONSUMER [TREE]: takes the library into a project as a host would, in the way of
CONSUMER, which is one of the functions below that say so. SETTINGS is a file that CMake wrote. TREE is
an installed library: own, of the build that is tested, release, of the test library.reproducible,
static, of the consumer add_subdirectory, or pair, of the build and of one with the other Qt. All of them
were moved after they were installed."""

import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

import snippets

HERE = pathlib.Path(__file__).resolve().parent
HOST = HERE / "host"
STRICT = ["-Wall", "-Wextra", "-Wpedantic", "-Werror", "-DQT_NO_CAST_FROM_ASCII"]


class Failure(Exception):
    pass


def run(*command, **options):
    command = [str(word) for word in command]
    result = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            **options)
    if result.returncode:
        raise Failure(f"{shlex.join(command)}:\n{result.stdout}")
    return result.stdout


def expect(found, wanted, what):
    if found != wanted:
        raise Failure(f"{what}: {found}, and not {wanted}")


def fresh(folder):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


class Consumers:
    def __init__(self, settings, tree):
        for name, value in json.loads(pathlib.Path(settings).read_text()).items():
            setattr(self, name, value)
        self.work = pathlib.Path(self.work)
        self.trees = {"own": self.work / "own", "static": self.work / "static",
                      "release": pathlib.Path(self.release), "both": self.work / "both",
                      "pair": self.work / "pair"}
        self.tree = self.trees.get(tree)
        self.strict = STRICT + ["-DHOST_LINKS_STATICALLY"] * (tree == "static")

    # The trees

    def install(self, build, name, hidden):
        """Installs what is built, and moves it. No file may name one of the hidden folders."""
        first = self.work / f"{name}-at-first"
        shutil.rmtree(first, ignore_errors=True)
        run("cmake", "--install", build, "--prefix", first)
        for file in filter(pathlib.Path.is_file, first.rglob("*")):
            content = file.read_bytes()
            for folder in (first, *hidden):
                if os.fsencode(folder) in content:
                    raise Failure(f"{file.relative_to(first)} names {folder}")
        shutil.rmtree(self.trees[name], ignore_errors=True)
        first.rename(self.trees[name])

    def library(self, postfix=""):
        return f"lib{self.name}{postfix}.so.{self.version}"

    # Building and running hosts

    def configure(self, source, folder, *options):
        toolchain = []
        if self.toolchain:
            toolchain = [f"-DCMAKE_TOOLCHAIN_FILE={self.toolchain}",
                         f"-DKEST_WINDOWS_QT={self.qt}"]
        fresh(folder)
        return run("cmake", "-G", self.generator, "-S", source, "-B", folder,
                   f"-DHOST_PACKAGE={self.name}", f"-DHOST_QT={self.major}", *toolchain, *options)

    def run_host(self, folder, *programs, arguments=()):
        environment = dict(os.environ)
        if self.tree and not self.toolchain:
            environment["LD_LIBRARY_PATH"] = str(self.tree / "lib")
        for program in programs:
            if self.emulator:
                environment["WINEPATH"] = f"Z:{self.tree}/bin" if self.tree else ""
                run(self.emulator, folder / f"{program}.exe", *arguments, env=environment)
            else:
                run(folder / program, *arguments, env=environment)

    def cmake_host(self, name, kind, *options, compiler=None, flags=""):
        """Builds the host's project for the kind of build against the tree and runs it; returns
        which file was linked."""
        folder = self.work / name
        if not self.toolchain:
            options = (*options, f"-DCMAKE_CXX_COMPILER={compiler or self.compiler}")
        self.configure(HOST, folder, f"-DCMAKE_BUILD_TYPE={kind}", f"-DCMAKE_CXX_FLAGS={flags}",
                       f"-DCMAKE_PREFIX_PATH={self.tree}", f"-DCMAKE_FIND_ROOT_PATH={self.tree}",
                       *options)
        run("cmake", "--build", folder)
        self.run_host(folder, "host", "little")
        return (folder / f"linked-{kind}.txt").read_text()

    # The consumers

    def installed_package(self):
        """A project for CMake, with what the build that is tested installs."""
        self.install(self.build, "own", [])
        self.cmake_host("installed_package", "Debug", flags=self.flags)

    def cmake(self):
        """A project for CMake in release mode."""
        self.cmake_host(f"cmake-{self.tree.name}", "Release")

    def debug_host(self):
        """A debug host where only a release library is installed."""
        linked = self.cmake_host("debug_host", "Debug")
        expect(linked, self.library(), "The debug host links")

    def both_kinds(self):
        """Hosts where a debug library is installed into the folder of the release library."""
        shutil.rmtree(self.trees["both"], ignore_errors=True)
        shutil.copytree(self.tree, self.trees["both"], symlinks=True)
        self.tree = self.trees["both"]
        run("cmake", "--install", self.build, "--prefix", self.tree)
        linked = self.cmake_host("both_kinds", "Debug")
        expect(linked, self.library("d"), "The debug host links")
        folder = self.work / "both_kinds"
        for kind in ("Release", "RelWithDebInfo", "MinSizeRel", ""):
            run("cmake", f"-DCMAKE_BUILD_TYPE={kind}", folder)
            linked = (folder / f"linked-{kind}.txt").read_text()
            expect(linked, self.library(), f"A host of the kind '{kind}' links")
        for kind, wanted in (("debug", f"-l{self.name}d"), ("release", f"-l{self.name}")):
            makefile = self.qmake_project(f"both_kinds-qmake-{kind}", f"CONFIG+={kind}")
            expect(re.findall(r"-lKest\w+", makefile.read_text())[0], wanted,
                   f"qmake's {kind} host links")
            name = wanted[2:]
            libraries = run("pkg-config", "--libs", name, env=self.pkg_config_path())
            expect(wanted in libraries.split(), True, f"pkg-config's {name} names {wanted}")

    def side_by_side(self):
        """Hosts where the library is installed for both major versions of Qt, into one folder: first
        that for Qt 6, which must not need the other."""
        self.expect_choices()
        self.install(self.build, "pair", [])
        first = {str(file) for file in self.tree.rglob("*") if not file.is_dir()}
        self.expect_one_of_two("6.4")
        self.expect_parts_for_qt6()

        build = self.work / "side_by_side-build"
        # Qt 5, since that is there.
        self.configure(self.source, build, "-DCMAKE_BUILD_TYPE=Debug", "-DKEST_BUILD_TESTS=OFF",
                       "-DKEST_BUILD_EXAMPLES=OFF", "-DKEST_BUILD_DESIGNER=OFF",
                       f"-DCMAKE_CXX_COMPILER_LAUNCHER={self.launcher}")
        run("cmake", "--build", build)
        run("cmake", "--install", build, "--prefix", self.tree)
        second = set((build / "install_manifest.txt").read_text().split("\n"))
        expect(sorted(first & second), [], "Of both are")
        self.major, self.name = "5", "KestWidgets"
        self.expect_own_tool(build)
        self.expect_one_of_two("5.15")

    def expect_one_of_two(self, least):
        """Fails where a host by one of the two names does not get that, for its Qt."""
        folder = self.work / f"side_by_side-{self.major}"
        linked = self.cmake_host(folder.name, "Debug", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON")
        expect(linked, self.library("d"), f"The host with Qt {self.major} links")
        translations = self.tree / "share" / self.name / "translations"
        expect((folder / "package.txt").read_text(), f"Qt{self.major} {translations}",
               "The package says")
        expect(translations.is_dir(), True, f"There are {translations}")

        def pkg_config(*options):
            return run("pkg-config", *options, f"{self.name}d", env=self.pkg_config_path()).split()

        expect(pkg_config("--print-requires"), [f"Qt{self.major}Widgets", ">=", least], "Needed is")
        libraries = [word for word in pkg_config("--libs") if word.startswith("-lKest")]
        expect(libraries, [f"-l{self.name}d"], "pkg-config links")
        flags = pkg_config("--cflags")
        run(self.compiler, *self.strict, *flags, "-fsyntax-only", HOST / "part.cpp")
        expect("-fPIC" in flags, "-fPIC" in (folder / "compile_commands.json").read_text(),
               "pkg-config has hosts compiled as CMake has")
        for file in [*self.tree.rglob(f"{self.name}d.pc"), *self.tree.rglob(f"{self.name}.pri")]:
            self.expect_names(file)
        self.expect_refusal(f'requested version "{least}"', "-S", HOST, "-B", folder,
                            "-UQt[56]*_DIR",
                            *self.only_old_qt(self.major, {"5": "5.14.2", "6": "6.3.2"}[self.major]))

    def expect_refusal(self, reason, *options):
        """Fails where CMake does with these options, or fails for another reason."""
        try:
            run("cmake", *options)
        except Failure as failure:
            if reason in str(failure):
                return
            raise
        raise Failure(f"cmake does with {options}")

    def expect_names(self, file):
        """Fails where a file for one Qt names the other one or its library."""
        others = {"5": r"\w*Qt6\w*", "6": r"\w*Qt5\w*|KestWidgets(?!Qt6)\w*"}
        found = re.findall(others[self.major], file.read_text())
        expect(found, [], f"{file.name} names")

    def expect_parts_for_qt6(self):
        """Fails where what a host of Qt 6 builds as a part of it is for another Qt."""
        folder = self.work / "side_by_side-part"
        self.configure(HERE / "subdirectory", folder, f"-DKEST_SOURCE={self.source}",
                       "-DBUILD_SHARED_LIBS=OFF", "-DKEST_INSTALL=ON")
        files = [folder / "kest" / "pkgconfig" / f"{self.name}.pc",
                 folder / "kest" / f"{self.name}.pri"]
        for file in files:
            self.expect_names(file)
        self.expect_own_tool(folder)

    def expect_own_tool(self, build):
        """Fails where translations are not compiled by the tool of the build's Qt, which is there
        beside that of another one."""
        tool = pathlib.Path(f"/usr/lib/qt{self.major}/bin/lrelease")
        if tool.exists():
            found = re.findall("^KEST_LRELEASE:.*=(.*)", (build / "CMakeCache.txt").read_text(),
                               re.MULTILINE)
            expect([str(pathlib.Path(path).resolve()) for path in found], [str(tool.resolve())],
                   "Translations are compiled by")

    def only_old_qt(self, major, version):
        """Returns options that have CMake find this version of a Qt, and no other of that."""
        folder = fresh(self.work / f"old-qt{major}")
        (folder / f"Qt{major}Config.cmake").write_text("")
        (folder / f"Qt{major}ConfigVersion.cmake").write_text(
            f"set(PACKAGE_VERSION {version})\n"
            "if(PACKAGE_FIND_VERSION VERSION_LESS_EQUAL PACKAGE_VERSION)\n"
            "  set(PACKAGE_VERSION_COMPATIBLE TRUE)\n"
            "endif()\n")
        found = {"5": self.qt5, "6": self.qt6}[major]
        # Where /lib is /usr/lib, CMake finds it in both.
        return (f"-DQt{major}_DIR={folder}",
                f"-DCMAKE_IGNORE_PATH={found};{found.removeprefix('/usr')}")

    def expect_choices(self):
        """Fails where the library is built with another Qt than it should be."""
        folder = fresh(self.work / "choice")
        command = ["-S", HERE / "choice", "-B", folder, f"-DKEST_SOURCE={self.source}",
                   "-UHOST_QT", "-UKEST_QT_MAJOR", "-UCMAKE_IGNORE_PATH", "-UQt[56]*_DIR"]
        for options, wanted in (((), "KestWidgets"),
                                (self.only_old_qt("5", "5.14.2"), "KestWidgetsQt6"),
                                (("-DHOST_QT=6",), "KestWidgetsQt6"),
                                (("-DHOST_QT=6;5",), "KestWidgets"),
                                (("-DHOST_QT=6", "-DKEST_QT_MAJOR=5"), "KestWidgets"),
                                (("-DKEST_QT_MAJOR=6",), "KestWidgetsQt6")):
            run("cmake", *command, *options)
            expect((folder / "chosen.txt").read_text(), wanted, f"With {options} is built")
        for reason, *options in (
                ("KEST_QT_MAJOR is 5 or 6, and not 7.", "-DKEST_QT_MAJOR=7"),
                ('requested version "5.15"', "-DKEST_QT_MAJOR=5", *self.only_old_qt("5", "5.14.2")),
                ('requested version "6.4"', "-DKEST_QT_MAJOR=6", *self.only_old_qt("6", "6.3.2"))):
            self.expect_refusal(reason, *command, *options)

    def cxx11_host(self):
        """A host in C++11."""
        self.cmake_host("cxx11_host", "Debug", "-DCMAKE_CXX_STANDARD=11",
                        "-DCMAKE_CXX_STANDARD_REQUIRED=ON", "-DCMAKE_CXX_EXTENSIONS=OFF")

    def clang_host(self):
        """A host that clang compiles."""
        self.cmake_host("clang_host", "Release", compiler=self.clang)

    def pkg_config_path(self):
        return {**os.environ, "PKG_CONFIG_PATH": str(self.tree / "lib" / "pkgconfig")}

    def pkg_config(self):
        """No build system: the compiler with what pkg-config says."""
        folder = fresh(self.work / f"pkg_config-{self.tree.name}")
        flags = run("pkg-config", "--cflags", "--libs", self.name,
                    env=self.pkg_config_path()).split()
        run(self.compiler, *self.strict, HOST / "main.cpp", *flags, "-o", folder / "host")
        run(self.compiler, *self.strict, HOST / "little.cpp", HOST / "part.cpp", *flags, "-o",
            folder / "little")
        self.run_host(folder, "host", "little")
        expect(run("pkg-config", "--modversion", self.name, env=self.pkg_config_path()).strip(),
               self.version, "pkg-config's version")

    def qmake_project(self, name, *options):
        """Writes a project for qmake and runs that; returns the file for make."""
        # A blank in a folder's name is what paths are lost at.
        tree = self.work / f"{self.tree.name} for qmake"
        if not tree.exists():
            tree.symlink_to(self.tree)
        folder = fresh(self.work / name)
        (folder / "host.pro").write_text("\n".join([
            f"include({tree}/lib/qmake/{self.name}.pri)", f"SOURCES = {HOST}/main.cpp",
            "TARGET = host", f"QMAKE_CXXFLAGS += {' '.join(self.strict)}", ""]))
        run(self.qmake, *options, "host.pro", cwd=folder)
        return folder / "Makefile"

    def qmake_host(self):
        """A project for qmake."""
        folder = self.qmake_project(f"qmake-{self.tree.name}").parent
        run("make", cwd=folder)
        self.run_host(folder, "host")

    def add_subdirectory(self):
        """A project that builds the library as a part of it: a shared one if it says nothing, here a
        static one, which is then installed for the other consumers of such."""
        source = HERE / "subdirectory"
        folder = self.work / "add_subdirectory"
        library = f"-DKEST_SOURCE={self.source}"
        self.configure(source, folder, library)
        expect((folder / "type.txt").read_text().strip(), "SHARED_LIBRARY", "Built is a")
        self.expect_untouched(folder)

        self.configure(source, folder, library, "-DCMAKE_BUILD_TYPE=Release",
                       "-DBUILD_SHARED_LIBS=OFF", "-DKEST_INSTALL=ON",
                       # The compiler cache, where there is one.
                       f"-DCMAKE_CXX_COMPILER_LAUNCHER={self.launcher}")
        expect((folder / "type.txt").read_text().strip(), "STATIC_LIBRARY", "Built is a")
        # It installs its translations, where Qt's tools are there to compile them.
        self.expect_untouched(folder, "kest_lrelease", "kest_lupdate")
        run("cmake", "--build", folder)
        self.run_host(folder, "host")
        self.expect_translations(folder / "translated")
        self.install(folder, "static", [folder, self.source])

    def translations(self):
        """A project with translations of its own and of the library."""
        folder = self.work / "translations"
        self.configure(HERE / "translated", folder, f"-DCMAKE_PREFIX_PATH={self.tree}",
                       f"-DCMAKE_CXX_COMPILER={self.compiler}")
        run("cmake", "--build", folder)
        self.expect_translations(folder)
        # The catalogues are also where each way to take the library in says that they are.
        catalogues = self.tree / "share" / self.name / "translations"
        package = (folder / "translations.txt").read_text()
        variable = run("pkg-config", "--variable=translations", self.name,
                       env=self.pkg_config_path()).strip()
        project_folder = self.qmake_project("translations-qmake").parent
        with open(project_folder / "host.pro", "a", encoding="utf-8") as project:
            project.write('write_file("found.txt", KEST_TRANSLATIONS)\n')
        run(self.qmake, "host.pro", cwd=project_folder)
        for found in (package, variable, (project_folder / "found.txt").read_text().strip()):
            expect(pathlib.Path(found).resolve(), catalogues.resolve(), "The translations are in")
        self.run_host(folder, "library_alone", arguments=("de", "Cream", "Schließen", package))
        self.run_host(folder, "library_alone", arguments=("zh_CN", "Cream", "关闭", variable))

    def examples(self):
        """The examples, as somebody who copies them builds them, with the test that they have."""
        for example in ("notes", "from-qmainwindow"):
            folder = self.work / f"examples-{example}"
            copy = fresh(self.work / "examples") / example
            shutil.copytree(pathlib.Path(self.source) / "examples" / example, copy)
            self.configure(copy, folder, f"-DCMAKE_PREFIX_PATH={self.tree}",
                           f"-DCMAKE_CXX_COMPILER={self.compiler}",
                           f"-DCMAKE_CXX_FLAGS={' '.join(STRICT)}")
            run("cmake", "--build", folder)
        environment = {**os.environ, "LD_LIBRARY_PATH": str(self.tree / "lib")}
        run("ctest", "--output-on-failure", cwd=self.work / "examples-notes", env=environment)

    def expect_translations(self, folder):
        """Fails where the programs of the project translated do not speak their languages."""
        for arguments in (("de", "Sahne", "Schließen"), ("de_AT", "Schlag", "Schließen"),
                          ("zh_CN", "Cream", "Close"), ("en", "Cream", "Close")):
            self.run_host(folder, "translated", arguments=arguments)
        for arguments in (("de", "Cream", "Schließen"), ("zh_CN", "Cream", "关闭")):
            self.run_host(folder, "library_alone", arguments=arguments)

    def expect_untouched(self, folder, *more):
        """Fails where the library's part has changed a host's variables, or has other names than
        these."""
        def variables(name):
            lines = (folder / name).read_text().split("\n")[:-1]
            return dict(line.split("=", 1) for line in lines)

        before, after = variables("before.txt"), variables("after.txt")
        ours = re.compile(r"KEST_|KestWidgets_|name$|names$|text$|value$|file$|ARG[VNC]\d*$")
        for name in sorted(before.keys() | after.keys()):
            if not ours.match(name):
                expect(after.get(name), before.get(name), f"The host's {name}")
        targets = (folder / "targets.txt").read_text().split()
        # Nothing but the library, which is not built for tests or the gallery.
        expect(sorted(targets),
               sorted(["KestWidgets", "kest_internal", "kest_objects", "kest_options", *more]),
               "The library's part has the targets")

    def target_names(self):
        """The names of all that is built where everything is."""
        folders = (pathlib.Path(self.build) / "CMakeFiles" / "TargetDirectories.txt").read_text()
        # The tool kits that the benchmarks compare with bring targets of their own.
        targets = re.findall(r"/CMakeFiles/(?!KF5)([^/]+)\.dir$", folders, re.MULTILINE)
        cmakes = {"test", "edit_cache", "rebuild_cache", "list_install_components", "install"}
        self.expect_prefixes(set(targets) - cmakes)

    def expect_prefixes(self, targets):
        others = [name for name in sorted(targets) if not re.match(r"KestWidgets$|kest[_-]", name)]
        expect(others, [], "Without our prefix are")

    def readme(self):
        """The README's program, in each way to build it that is written down, word for word."""
        blocks = [block for page in ("README.md", "docs/Installing.md")
                  for block in snippets.blocks(pathlib.Path(self.source) / page)]

        def block(language, containing=""):
            found = [b for b in blocks if b.language == language and containing in b.text]
            expect(len(found), 1, f"Blocks of {language} with '{containing}'")
            return found[0].text.replace("DIR", str(self.tree))

        folder = fresh(self.work / "readme")
        strict = " ".join(STRICT)
        environment = {**os.environ, "CXXFLAGS": strict}
        (folder / "main.cpp").write_text(block("cpp"))
        (folder / "CMakeLists.txt").write_text(block("cmake"))
        (folder / "notes.pro").write_text(block("qmake"))
        for command in ("-DCMAKE_PREFIX_PATH", "pkg-config", "qmake"):
            lines = block("sh", command).replace("g++", f"g++ {strict}")
            run("bash", "-e", "-c", lines, cwd=folder, env=environment)

    def documentation(self):
        """Each piece of C++ in the documentation."""
        files = [pathlib.Path(self.source) / "README.md",
                 *sorted((pathlib.Path(self.source) / "docs").glob("*.md"))]
        flags = run("pkg-config", "--cflags", self.name, f"Qt{self.major}Network",
                    env=self.pkg_config_path()).split()
        if self.major == "6":
            flags.append("-Wno-deprecated-declarations")  # of attributes that it has always set
        folder = fresh(self.work / "documentation")
        for source in snippets.write(files, folder):
            run(self.compiler, "-Wall", "-Wextra", "-Werror", "-Wno-unused", "-fsyntax-only",
                f"-I{HERE}", *flags, source)


def main():
    settings, consumer, *tree = sys.argv[1:]
    try:
        getattr(Consumers(settings, *(tree or [None])), consumer)()
    except Failure as failure:
        sys.exit(f"{failure}")


if __name__ == "__main__":
    main()
