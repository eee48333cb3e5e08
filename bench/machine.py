# SPDX-License-Identifier: MIT
"""What the measured figures depend on: the machine, the compiler, the commit, the versions of the peers."""
import datetime
import os
import platform
import subprocess

PEER_PACKAGES = ["libspdlog-dev", "liblog4cplus-dev", "liblog4cxx-dev", "libboost-log-dev", "libgoogle-glog-dev",
                 "libfmt-dev"]


def output(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False).stdout


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as lines:
        model = next((line.split(":", 1)[1].strip() for line in lines if line.startswith("model name")), "unknown")
    return f"{model}, {os.cpu_count()} cores"


def commit():
    changed = output("git", "status", "--porcelain", "--untracked-files=no").strip()
    return output("git", "rev-parse", "--short", "HEAD").strip() + (" with uncommitted changes" if changed else "")


def versions():
    lines = output("dpkg-query", "-W", "-f", "${Package} ${Version}\n", *PEER_PACKAGES).splitlines()
    return ", ".join(line.replace("-dev", "", 1) for line in lines)


def description():
    """Of this moment: the load is what other work the machine had before the measurement."""
    return {
        "processor": processor(),
        "kernel": platform.release(),
        "compiler": output("c++", "--version").splitlines()[0],
        "date": datetime.date.today().isoformat(),
        "commit": commit(),
        "load": f"{os.getloadavg()[0]:.1f}",
        "versions": versions(),
    }
