# Sourced by the scripts: where things are, and how they speak.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
scripts=$root/scripts

# What is dear to make and does not depend on the working tree.
HOME=${HOME:-$(getent passwd "$(id -u)" | cut -d: -f6)}
export HOME
cache=${XDG_CACHE_HOME:-$HOME/.cache}/vs5-installer

# One line about what is being done, apart from what a program prints.
say()
{
    printf '%s\n' "== $*" >&2
}

fail()
{
    printf '%s\n' "error: $*" >&2
    exit 1
}

# For commands that change the system.
as_root()
{
    if [[ $(id -u) == 0 ]]; then
        "$@"
    else
        sudo "$@"
    fi
}

# Runs a command, and shows its output only if it fails.
quietly()
{
    local output status=0
    output=$("$@" 2>&1 </dev/null) || status=$?
    if [[ $status != 0 ]]; then
        printf '%s\n' "$output" >&2
    fi
    return $status
}

# The packages of the list that are not installed.
missing_packages()
{
    local installed package
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package} ${Package}:${Architecture}\n' \
        "$@" 2>/dev/null | sed -n 's/^installed //p')
    for package in "$@"; do
        case " ${installed//$'\n'/ } " in
            *" $package "*) ;;
            *) printf '%s\n' "$package" ;;
        esac
    done
}

apt_install()
{
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install --yes --quiet \
        --no-install-recommends -o DPkg::Lock::Timeout=600 "$@"
}

# A part of the index that cannot be had is no reason to stop: what is wanted may be in the rest.
apt_update()
{
    as_root apt-get update -o DPkg::Lock::Timeout=600 >/dev/null 2>&1 ||
        say "apt-get update failed; going on with what is known"
}
