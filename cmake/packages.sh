# Sourced by ./run, ./test and .ci/: the Debian packages of packages.txt, and build folders.
# Sections are the marked parts of the list: build, test, check.

# listed_packages SECTION...: the names, one a line.
listed_packages() {
    awk -v sections=" $* " '
        /^# ---/ { take = index(sections, " " $NF " ") > 0; next }
        /^#/ || NF == 0 { next }
        take { print $1 }' "$root/packages.txt"
}

# install_packages SECTION...: installs those that are missing.
install_packages() {
    local installed missing=() package
    installed=" $(dpkg-query -W -f='${Package}:${db:Status-Status}\n' 2>/dev/null |
        sed -n 's/:installed$//p' | tr '\n' ' ')"
    for package in $(listed_packages "$@"); do
        [[ $installed = *" $package "* ]] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing and need root or sudo: ${missing[*]}" >&2
            return 1
        }
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# cached BUILD_FOLDER OPTION: the value with which a build folder was configured.
cached() {
    sed -n "s/^$2:[A-Z]*=//p" "$1/CMakeCache.txt"
}
