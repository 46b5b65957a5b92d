"""The build that the measuring tools share. BUILD names its folder (default: build/bench)."""
import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = pathlib.Path(os.environ.get("BUILD", ROOT / "build/bench")).resolve()


def build(*targets, packages=("build", "bench")):
    """Installs what is missing and builds the programs in BUILD / "bin". Ends the program, behind the
    words of what went wrong, where that fails."""
    for command in (
            [ROOT / "tools/packages", *packages],
            ["cmake", "--preset", "release", "-DAUTONOTIFY_BENCH=ON", "-DBUILD_TESTING=OFF", "-B", BUILD],
            ["cmake", "--build", BUILD, "--target", *targets]):
        done = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, text=True)
        if done.returncode != 0:
            sys.exit(f"{done.stdout}{pathlib.Path(command[0]).name} has failed")
