#!/usr/bin/env bash
# Installs and runs the packages of build/packages in clean Debian 12 systems, and says PASS or FAIL.
# The Debian package: checked by lintian and the validators, installed with what it depends on, worked by keys as an
# ordinary user, called without a window, renewed over an edited station, purged. The portable form: the same keys on a machine with X11
# and no more, then on a stick that may only be read.
# Needs root, or user namespaces with sub-ids. What was downloaded stays for a day in build/packages/cache.
set -euo pipefail
cd "$(dirname "$0")/.."
packages=$PWD/build/packages

# Mounts and processes of the run are in namespaces of their own and end with it, however it ends.
if [ "${KORVANTA_PACKAGE_TEST:-}" != inside ]; then
    export KORVANTA_PACKAGE_TEST=inside
    namespaces=(--mount --pid --fork --kill-child --mount-proc)
    [ "$(id -u)" -eq 0 ] || namespaces=(--user --map-auto --map-root-user "${namespaces[@]}")
    exec unshare "${namespaces[@]}" "$0" "$@"
fi

deb=$(find "$packages" -maxdepth 1 -name 'korvanta_*.deb')
portable=$(find "$packages" -maxdepth 1 -name 'korvanta-*-portable.tar.gz')
if [ ! -f "$deb" ] || [ ! -f "$portable" ]; then
    echo "test.sh: build the packages first: packaging/make.sh" >&2
    exit 2
fi
version=$(dpkg-deb -f "$deb" Version)
title="Korvanta V${version%-*}"
work=$(mktemp -d "$packages/test.XXXXXX")
cache=$packages/cache
failed=0
# In memory where there is plenty of it: two systems are many small files.
if [ "$(awk '/^MemAvailable/ {print $2}' /proc/meminfo)" -gt 4000000 ]; then
    mount -t tmpfs -o mode=755,size=3g korvanta-test "$work"
fi

# --- telling --------------------------------------------------------------------------------------------------------

step() { printf '\n== %s (%s s)\n' "$*" "$SECONDS"; }

# check TEXT COMMAND...: the command must succeed. What it says is shown when it doesn't.
check() {
    local text=$1 output
    shift
    if output=$("$@" 2>&1); then
        printf 'ok    %s (%s s)\n' "$text" "$SECONDS"
    else
        failed=$((failed + 1))
        printf 'FAIL  %s\n      %s\n%s\n' "$text" "$*" "$output"
    fi
}

equal() { [ "$1" = "$2" ] || { printf 'expected: %s\nfound:    %s\n' "$2" "$1"; return 1; }; }
absent() { ! ls -d "$@" 2>/dev/null; }
holds() { grep -qF -- "$2" "$1" || { echo "no \"$2\" in $1:"; head -n 20 "$1"; return 1; }; }

finish() {
    local status=$?
    trap - EXIT
    for mount in $(awk -v w="$work" 'index($2, w) == 1 {print $2}' /proc/mounts | sort -r); do
        umount -l "$mount" 2>/dev/null || true
    done
    rm -rf --one-file-system "${work:?}"
    if [ $status -ne 0 ] || [ $failed -ne 0 ]; then
        printf '\nFAIL: %s checks failed, status %s (%s s)\n' "$failed" "$status" "$SECONDS"
        exit 1
    fi
    printf '\nPASS (%s s)\n' "$SECONDS"
}
trap finish EXIT

# --- clean systems ---------------------------------------------------------------------------------------------------

# What every Debian 12 with a desktop has, and the portable form counts on.
desktop=(libx11-6 libx11-xcb1 libxcb1 libgl1 libegl1 libfontconfig1 xkb-data fonts-dejavu-core)

# This machine's own entries for Debian, without those of other archives.
sources() {
    grep -lsE 'bookworm' /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources |
        xargs grep -lE '(^URIs:|^deb).*debian' || true
}

# A root folder with the essential packages and apt, packed; a day old at most.
make_base() {
    mkdir -p "$cache/archives/partial"
    find "$cache" -maxdepth 1 -name 'base.tar' -mmin +1440 -delete
    [ -f "$cache/base.tar" ] && return
    # shellcheck disable=SC2046
    mmdebstrap --quiet --variant=apt --skip=cleanup/apt/lists --dpkgopt=force-unsafe-io \
        --aptopt='Acquire::Languages "none"' --aptopt='APT::Install-Recommends "false"' \
        bookworm "$cache/base.part.tar" $(sources)
    mv "$cache/base.part.tar" "$cache/base.tar"
}

# new_system FOLDER: unpacked, with devices, processes, the archives of packages, and two users.
new_system() {
    mkdir -p "$1"
    tar -C "$1" -xf "$cache/base.tar" --exclude='./dev/*'
    mount --rbind /dev "$1/dev"
    mount -t proc proc "$1/proc"
    mount --bind "$cache/archives" "$1/var/cache/apt/archives"
    for user in anna bruno; do
        chroot "$1" useradd --create-home "$user"
    done
}

# in_system FOLDER COMMAND...: as root.
in_system() {
    local root=$1
    shift
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

install_in() {
    local root=$1
    shift
    in_system "$root" apt-get install -y -qq --allow-downgrades -o Dpkg::Use-Pty=0 -o Dpkg::Options::=--force-unsafe-io "$@"
}

# as_user FOLDER USER COMMAND...: an ordinary user at the display of this run.
as_user() {
    local root=$1 user=$2
    shift 2
    chroot --userspec="$user:$user" "$root" env -i PATH=/usr/bin:/bin LC_ALL=C.UTF-8 HOME="/home/$user" DISPLAY="$DISPLAY" "$@"
}

# --- the window ------------------------------------------------------------------------------------------------------

start_display() {
    mkfifo "$work/display"
    # All that run here are of this test, under other numbers of users: the display lets them in.
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -ac 3>"$work/display" >/dev/null 2>&1 &
    DISPLAY=:$(head -n 1 "$work/display")
    export DISPLAY
    openbox >/dev/null 2>&1 &
}

# await SECONDS COMMAND...: until it succeeds.
await() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || { echo "not within time: $*"; return 1; }
        sleep 0.2
    done
}

shown() { xdotool search --onlyvisible --name "^$1" getwindowfocus >/dev/null; }
press() { xdotool key --delay 200 "$@"; }

# Starts a program of a system in the background; its status comes into $work/status.
start_window() {
    rm -f "$work/status"
    (as_user "$@" >"$work/output" 2>&1 && echo 0 >"$work/status" || echo $? >"$work/status") &
}

photograph() { import -window root "$packages/failed.png" 2>/dev/null || true; }

window_shown() {
    await 30 shown "$1" && sleep 1 && return
    photograph
    cat "$work/output"
    return 1
}

ended() {
    await 30 test -s "$work/status" || { photograph; return 1; }
    equal "$(cat "$work/status")" "$1" || { cat "$work/output"; return 1; }
}

# The first shape of the list, through all screens, saved under a name.
key_road() {
    press F10 F10 F10 F10
    sleep 0.5
    xdotool type --delay 100 "$1"
    press Return
}

# --- the steps ---------------------------------------------------------------------------------------------------------

check_files() {
    step "What the package holds"
    check "lintian finds no error and no warning" lintian --allow-root --fail-on error,warning "$deb"
    dpkg-deb -x "$deb" "$work/files"
    check "the entry of the menu is valid" desktop-file-validate "$work"/files/usr/share/applications/korvanta.desktop
    check "the AppStream data is valid" appstreamcli validate --no-net \
        "$work"/files/usr/share/metainfo/org.korvanta.Korvanta.metainfo.xml
    for page in korvanta korvanta-batch korvanta-host; do
        check "the page $page(1) has no fault" equal \
            "$(MANWIDTH=80 man --warnings -l "$work/files/usr/share/man/man1/$page.1.gz" 2>&1 >/dev/null)" ""
    done
    check "what the manual points to is there" manual_links "$work/files/usr/share/doc/korvanta"
    rm -rf "$work/files"
}

# A link that leads somewhere in the sources leads there in the package.
manual_links() {
    local page link broken=0
    while IFS=: read -r page link; do
        link=${link#](}
        link=${link%)}
        link=${link%%#*}
        if [ -n "$link" ] && [ -e "docs/$(dirname "$page")/$link" ] && [ ! -e "$1/$(dirname "$page")/$link" ]; then
            echo "$page: $link"
            broken=1
        fi
    done < <(cd "$1" && grep -roE --include='*.md' '\]\([^): ]+\)' .)
    return $broken
}

check_window() {
    step "The station in its window, as an ordinary user"
    start_window "$system" anna korvanta
    check "the window shows \"$title\"" window_shown "$title"
    check "the first start made ~/Korvanta" test -f "$anna/Korvanta_MSG.TXT"
    check "and left nothing beside it" absent "$anna.part"
    key_road KEYS
    check "keys save a job" await 30 test -s "$anna/NEST/KEYS.nst"
    check "with its program" await 10 test -s "$anna/PROGRAM/KEYS.nc"
    check "with its preview" await 10 test -s "$anna/NEST/DATA/KEYS.bmp"
    press Escape F10
    check "Esc leaves with status 0" ended 0
    check "the template wasn't touched" in_system "$system" dpkg --verify korvanta
    start_window "$system" anna env HOME= korvanta
    check "a start without a home says why" window_shown "Critical Error"
    press Return
    check "and ends with status 1" ended 1
    check "on standard error, too" holds "$work/output" "neither HOME nor KORVANTA_STATION is set"
}

check_batch() {
    step "Without a window"
    as_user "$system" anna korvanta-batch R-01 --program BATCH --quiet
    check "the program is that of the window" cmp "$anna/PROGRAM/KEYS.nc" <(sed 's/BATCH/KEYS/' "$anna/PROGRAM/BATCH.nc")
    check "another user's first start" as_user "$system" bruno korvanta-batch BRACKET.dxf --save FIRST --quiet
    check "saves a job with its preview" test -s "$system/home/bruno/Korvanta/NEST/DATA/FIRST.bmp"
    check "the folder may be named" as_user "$system" bruno env KORVANTA_STATION=/home/bruno/other \
        korvanta-batch R-05 --program THERE --quiet
    check "and is used then" test -s "$system/home/bruno/other/PROGRAM/THERE.nc"
    for table in "$anna"/PPR*.ini "$anna"/ppr/*.ini; do
        name=${table#"$anna/"}
        sed -i "s|^PPR_INI=.*|PPR_INI=${name//\//\\\\}|" "$system/home/bruno/Korvanta/Korvanta.ini"
        check "the table $name writes a program" as_user "$system" bruno korvanta-batch PANEL.dxf --program TABLE --quiet
    done
}

check_host() {
    step "Under a small host"
    sed -i 's/^VELCOM=.*/VELCOM=YES/; s/^SCREEN_RES=.*/SCREEN_RES=60/' "$anna/Korvanta.ini"
    start_window "$system" anna dbus-run-session -- sh -c 'korvanta-host --no-window --language 2 >/tmp/host.log & sleep 1; korvanta'
    check "the window comes" window_shown "$title"
    check "the host was told of it" await 10 test -s "$system/tmp/host.log"
    press Escape F10
    check "and goes" ended 0
    sed -i 's/^VELCOM=.*/VELCOM=NO/; s/^SCREEN_RES=.*/SCREEN_RES=0/' "$anna/Korvanta.ini"
}

# A newer package: another catalogue, another table of a known name, one table more.
make_newer() {
    dpkg-deb -R "$deb" "$work/newer"
    sed -i "s/^Version: .*/Version: ${version%-*}-99/" "$work/newer/DEBIAN/control"
    local template=$work/newer/usr/share/korvanta/station
    printf '\r\n; newer\r\n' | tee -a "$template/PPR.ini" "$template/Korvanta.ini" >>"$template/Korvanta_MSG.TXT"
    cp "$template/PPR.ini" "$template/ppr/Newer.ini"
    dpkg-deb --root-owner-group -Znone -b "$work/newer" "$system/tmp/newer.deb" >/dev/null
}

check_upgrade() {
    step "A newer package over an edited station"
    sed -i 's/^LANGUAGE=.*/LANGUAGE=3/' "$anna/Korvanta.ini"
    echo '; mine' >>"$anna/PPR.ini"
    rm "$anna/DXF/FLANGE.dxf"
    (cd "$anna" && find . -type f ! -name Korvanta_MSG.TXT ! -name .korvanta -exec md5sum {} +) >"$work/before"
    make_newer
    check "installs over the old one" install_in "$system" /tmp/newer.deb
    start_window "$system" anna korvanta
    check "the window comes" window_shown "$title"
    press Escape F10
    check "and goes" ended 0
    check "settings, tables and jobs are as they were" sh -c "cd '$anna' && md5sum --quiet -c '$work/before'"
    check "the new table has come" holds "$anna/ppr/Newer.ini" "; newer"
    check "the catalogue is the new one" cmp "$anna/Korvanta_MSG.TXT" "$system/usr/share/korvanta/station/Korvanta_MSG.TXT"
    check "the sample that was thrown away stays away" absent "$anna/DXF/FLANGE.dxf"
    check "the saved job opens" as_user "$system" anna korvanta-batch KEYS.nst --program AGAIN --quiet
    check "and gives the program of before" cmp "$anna/PROGRAM/KEYS.nc" <(sed 's/AGAIN/KEYS/' "$anna/PROGRAM/AGAIN.nc")
}

check_purge() {
    step "Removing"
    in_system "$system" dpkg -L korvanta >"$work/listed"
    check "purge" in_system "$system" apt-get purge -y -qq -o Dpkg::Use-Pty=0 korvanta
    while read -r path; do
        [ -d "$system$path" ] || echo "$path"
    done <"$work/listed" >"$work/files-of-package"
    sed "s|^|$system|" "$work/files-of-package" >"$work/paths"
    check "none of its $(wc -l <"$work/paths") files is left" sh -c "! xargs -d '\n' -a '$work/paths' ls -d 2>/dev/null"
    check "nothing else of that name is left" equal \
        "$(cd "$system" && find . -xdev -iname '*korvanta*' ! -path './home/*' ! -path './proc/*' ! -path './tmp/*')" ""
    check "the package manager has forgotten it" sh -c "! chroot '$system' dpkg-query -W korvanta 2>/dev/null"
    check "the operator's work is still there" test -s "$anna/NEST/KEYS.nst"
}

# A program of the stick loads the window library from the stick, and nothing of it from the machine.
libraries_from_stick() {
    local maps
    maps=$(cat $(grep -lsE 'korvanta-[0-9.]+/korvanta$' /proc/[0-9]*/maps | head -n 1))
    grep -q "/lib/libQt6Gui.so.6" <<<"$maps" && ! grep -E '(Qt6|libq|icu)' <<<"$maps" | grep -v "/stick/"
}

check_portable() {
    step "The portable form on a machine with X11 and no more"
    local stick=$machine/stick name
    mkdir "$stick"
    mount -t tmpfs -o mode=755 stick "$stick"
    tar -C "$stick" -xzf "$portable"
    name=$(ls "$stick")
    check "what the manual points to is there" manual_links "$stick/$name/docs"
    chroot "$machine" chown -R anna:anna /stick
    start_window "$machine" anna "/stick/$name/korvanta"
    check "the window shows \"$title\"" window_shown "$title"
    check "by the libraries of the stick" libraries_from_stick
    key_road STICK
    check "keys save a job on the stick" await 30 test -s "$stick/$name/NEST/STICK.nst"
    check "with its program" await 10 test -s "$stick/$name/PROGRAM/STICK.nc"
    press Escape F10
    check "Esc leaves with status 0" ended 0
    mv "$stick/$name" "$stick/moved here"
    check "moved elsewhere it works without a window, too" as_user "$machine" anna "/stick/moved here/korvanta-batch" \
        BRACKET.dxf --save MOVED --quiet
    check "with the preview" test -s "$stick/moved here/NEST/DATA/MOVED.bmp"
    mv "$stick/moved here" "$stick/$name"
    check "the home folder is left alone" absent "$machine/home/anna/Korvanta"

    step "The same on a stick that may only be read"
    mount -o remount,ro "$stick"
    check "a program may go elsewhere" as_user "$machine" anna "/stick/$name/korvanta-batch" R-01 --program OUT --out /home/anna --quiet
    check "and is there" test -s "$machine/home/anna/OUT.nc"
    as_user "$machine" anna "/stick/$name/korvanta-batch" R-01 --program NONE >"$work/output" 2>&1 && status=0 || status=$?
    check "one that can't be written ends with status 1" equal "$status" 1
    check "and says why" holds "$work/output" "Read-only file system"
    start_window "$machine" anna "/stick/$name/korvanta"
    check "the window comes" window_shown "$title"
    key_road NONE
    check "a job that can't be saved is told" window_shown "Critical Error"
    press Return
    check "and ends with status 1" ended 1
    check "with the reason" holds "$work/output" "Read-only file system"
}

step "Clean Debian systems"
make_base
system=$work/system
machine=$work/machine
anna=$system/home/anna/Korvanta
new_system "$system"
new_system "$machine"
start_display
check_files

step "Installing"
cp "$deb" "$system/tmp/korvanta.deb"
check "apt installs the package with what it depends on" install_in "$system" /tmp/korvanta.deb fonts-dejavu-core \
    dbus
rm "$system/tmp/korvanta.deb"
check_window
check_batch
check_host
check_upgrade
check_purge

step "A machine with X11"
check "X11, OpenGL and a font" install_in "$machine" "${desktop[@]}"
check "no window library is there" sh -c "! ls '$machine'/usr/lib/x86_64-linux-gnu/libQt6*"
check_portable
