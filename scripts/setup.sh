# shellcheck shell=sh
# Sourced by ./run and ./test: installs the packages that they need, and keeps what
# the compilers make.

# install_missing PACKAGE...
# Installs those of the Debian packages that are not there yet, and nothing
# else. Says what it does; returns 1 when something cannot be had.
install_missing()
{
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system, so nothing can be installed here." >&2
        echo "Install what these Debian packages hold, by hand: $*" >&2
        return 1
    fi

    missing=
    for package in "$@"; do
        is_installed "$package" || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0

    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages:$missing" >&2
            echo "Only root can install them, and there is no sudo. As root:" >&2
            echo "    apt-get install --no-install-recommends$missing" >&2
            return 1
        fi
        as_root="sudo"
        [ -t 0 ] || as_root="sudo -n"   # nobody there to type a password
    fi

    echo "Installing:$missing"
    # One unreachable source need not matter: what matters is the install.
    apt_get update
    # shellcheck disable=SC2086 # a list of words
    apt_get install --yes --no-install-recommends $missing && return 0
    echo "Could not install:$missing" >&2
    return 1
}

is_installed()
{
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Quiet unless it fails; waits for another apt-get to end; asks nothing.
apt_get()
{
    apt_log=$(mktemp)
    # shellcheck disable=SC2086 # as_root is a list of words
    if $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 "$@" \
        >"$apt_log" 2>&1 </dev/null; then
        rm -f "$apt_log"
        return 0
    fi
    echo "apt-get $* failed:" >&2
    tail -n 20 "$apt_log" >&2
    rm -f "$apt_log"
    return 1
}

# use_compiler_cache ROOT
# What was compiled once, in this folder or another, comes from ccache's store. A
# folder's own path makes no difference there; nor does the time of a header that
# others are precompiled with.
use_compiler_cache()
{
    command -v ccache >/dev/null || return 0
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    export CCACHE_BASEDIR="$1" CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros
}
