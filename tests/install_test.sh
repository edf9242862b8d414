#!/bin/bash
# What is installed and packed, as users, hosts and shells meet it: install_test.sh BUILD SOURCE
set -u
build=$(realpath "$1") source=$(realpath "$2")
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM LD_LIBRARY_PATH PKG_CONFIG_PATH
export LC_ALL=C.UTF-8
source "$(dirname "$0")/common.bash"
# same WHAT WANTED GOT
same() {
  [ "$2" = "$3" ] || fail "$1:" "$(diff --label wanted --label got -u <(echo "$2") <(echo "$3"))"
}
# silent COMMAND… — succeeds and says nothing.
silent() {
  if ! "$@" >log 2>&1 || [ -s log ]; then fail "$*: $(cat log)"; fi
}

# Another prefix than the configured one, below another root. What the user has installed from this
# build stays known.
cp -p "$build/install_manifest.txt" kept 2>/dev/null
DESTDIR=$work/root cmake --install "$build" --prefix /opt/lists >log || { cat log; exit 1; }
prefix=$work/root/opt/lists
plugin=$prefix/lib/listwright/libkvrnstep.so.2

# The commands find the plug-in, and the plug-in its modules.
same listwright $'i\nii' "$("$prefix/bin/listwright" --list --type roman --end 2)"
printf 'arg sPthStepFolder .\narg s_IniPathAndName steps.ini\ncall\n' >script
same stepdrive $'opened frmListwright\nclosed frmListwright\nreturned False ""' \
  "$("$prefix/bin/stepdrive" script)"

# Hosts that are built against it.
cat >host.c <<'END'
#include <kvrnstep/kvrnstep.h>
#include <stdio.h>
int main(void) { return printf("%s", kvrnstep_plug_name_version()) < 0; }
END
cat >CMakeLists.txt <<'END'
cmake_minimum_required(VERSION 3.25)
project(host C)
find_package(kvrnstep 1 QUIET)
if(kvrnstep_FOUND)
  message(FATAL_ERROR "version 2 passes for version 1")
endif()
find_package(kvrnstep 2.0 REQUIRED)
add_executable(host host.c)
target_link_libraries(host PRIVATE kvrnstep::kvrnstep)
file(WRITE ${CMAKE_BINARY_DIR}/plugin ${kvrnstep_PLUGIN})
END
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name kvrnstep.pc)")
export PKG_CONFIG_PATH PKG_CONFIG_SYSROOT_DIR=$work/root
read -ra flags <<<"$(pkg-config --cflags --libs kvrnstep)"
silent cc -std=c99 -pedantic -Wall -Wextra -Werror host.c "${flags[@]}" -o linked
version=$("$prefix/bin/listwright" --version)
same "a linked host" "$version" "$(LD_LIBRARY_PATH=$(pkg-config --variable=libdir kvrnstep) ./linked)"
same "the plug-in's path" "$(realpath "$plugin")" \
  "$(realpath "$(pkg-config --variable=plugin kvrnstep)")"
if { cmake -B cmade -G Ninja -DCMAKE_PREFIX_PATH="$prefix" && cmake --build cmade; } >log 2>&1; then
  same "a host made by CMake" "$version" "$(cmade/host)"
  same "the plug-in's path" "$plugin" "$(cat cmade/plugin)"
else
  fail "CMake: $(cat log)"
fi
for header in "$prefix"/include/kvrnstep/*; do
  [ "${header##*/}" != driving.hpp ] || fail "driving.hpp is no header for hosts"
  language=c
  [[ $header != *.hpp ]] || language='c++ -std=c++20'
  # shellcheck disable=SC2086 # two words
  silent cc -I"$prefix/include" -fsyntax-only -x $language "$header" -w
done

# The library shows its interface and nothing else.
same "exported names" \
  "$({
    sed -n 's/^KVRNSTEP_API .*[ *]\(kvrnstep_[a-z_]*\)(.*/\1/p' \
      "$prefix/include/kvrnstep/kvrnstep.h"
    printf '%s\n' kvrnstepDrive kvrnstepGetClassObject
  } | sort)" \
  "$(nm --dynamic --defined-only --format=just-symbols "$plugin" | sort)"

# Nothing points back into the build, and everything is hardened.
while IFS= read -r file; do
  binary=$(readelf --file-header --segments --dynamic --dyn-syms --wide "$file" 2>/dev/null) || continue
  grep -E 'R(UN)?PATH' <<<"$binary" && fail "$file has a run path"
  for mark in 'Type: *DYN' GNU_RELRO 'FLAGS_1.* NOW' __stack_chk_fail; do
    grep -q "$mark" <<<"$binary" || fail "$file: no $mark"
  done
done < <(find "$prefix" -type f)
grep -rIlF -e "$build" -e "$source" "$prefix" && fail "installed files name the build"
find "$work/root" -xtype l | grep . && fail "links lead nowhere"

# The desktop entry, the manual pages and the completions fit the commands.
silent desktop-file-validate "$prefix/share/applications/listwright.desktop"
appstreamcli validate --no-net "$prefix"/share/metainfo/* >log 2>&1 || fail "$(cat log)"
# completed COMMAND WORD… — what the last word may become, a line each.
completed() {
  PATH=$prefix/bin:$PATH bash --noprofile --norc -c '
    source "$0" && read -ra how <<<"$(complete -p "$1")"
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
    "${how[2]}" "$1" "${!#}" "${COMP_WORDS[COMP_CWORD - 1]}"
    printf "%s\n" "${COMPREPLY[@]}" | sort' "$prefix/share/bash-completion/completions/$1" "$@" 2>&1
}
for command in listwright stepdrive; do
  options=$("$prefix/bin/$command" --help | grep -oE -- '--[a-z-]+' | sort -u)
  same "options that $command completes" "$options" "$(completed $command --)"
  page=$(MANWIDTH=200 man --warnings -l "$prefix/share/man/man1/$command.1" 2>log)
  [ ! -s log ] || fail "$(cat log)"
  for option in $options; do
    grep -qE -- "^ +(.*, )?$option( |$)" <<<"$page" || fail "$command(1) does not explain $option"
  done
done
mkdir 'a folder' && touch 'a list.step' 'a text'
same files $'a folder\na list.step' "$(completed listwright --crlf 'a ')"
same folders 'a folder' "$(completed listwright --step-folder 'a ')"
same type prefix-suffix "$(completed listwright --type = pre)"
for type in $(completed listwright --type ''); do
  silent "$prefix/bin/listwright" --save a.step --end 1 --type "$type"
done
same "front ends" qt "$(completed stepdrive --frontend q)"
export PATH=$prefix/bin:$PATH
in_fish() { fish -N -c "set fish_complete_path $prefix/share/fish/vendor_completions.d; complete -C '$1'"; }
same "options in fish" "$("$prefix/bin/listwright" --help | grep -oE -- '--[a-z-]+' | sort -u)" \
  "$(in_fish 'listwright --' | cut -f 1 | sort)"
same "front ends in fish" qt "$(in_fish 'stepdrive --frontend q')"
printf '%s\n' "fpath=($prefix/share/zsh/site-functions \$fpath); autoload -U compinit; compinit -u -D" \
  $'listwright --lis\t --typ\trom\t --end 2 >zsh.out; exit' |
  TERM=xterm script -qec 'zsh -fi' log >/dev/null
same "completed by zsh" $'i\nii' "$(cat zsh.out)"

# Emacs finds its commands by itself, and no page leads nowhere.
same "commands in Emacs" t "$(EMACSLOADPATH=$prefix/share/emacs/site-lisp: emacs --batch \
  -f package-activate-all --eval '(princ (and (commandp (quote listwright-continue)) (require (quote listwright)) t))')"
while IFS=: read -r page link; do
  link=${link#*[(\"]}
  [ -e "${page%/*}/${link%%#*}" ] || fail "$page leads to $link"
done < <(grep -rIoE '(\]\(|src=")[a-z0-9/_.-]+' "$prefix/share/doc")

# The Debian packages.
cpack --config "$build/CPackConfig.cmake" -B packed >log 2>&1 || fail "cpack: $(cat log)"
same packages $'libkvrnstep-dev\nlistwright' \
  "$(for package in packed/*.deb; do dpkg-deb -f "$package" Package; done)"
# A build for another place than /usr does not know the folder of Debian's architecture.
lintian --fail-on error,warning --suppress-tags pkg-config-unavailable-for-cross-compilation \
  packed/*.deb >log 2>&1 || fail "lintian: $(cat log)"
for package in packed/*.deb; do dpkg-deb -x "$package" unpacked; done
same "the unpacked command" $'1\n2' "$(unpacked/usr/bin/listwright --list --end 2)"
grep -rlF -e "$build" -e "$PWD" unpacked && fail "packed files name the build"
depends=$(dpkg-deb -f packed/listwright_*.deb Depends)
if [ -e unpacked/usr/lib/listwright/kvrnstep-qt.so ] && [[ $depends != *libqt6widgets6* ]]; then
  fail "listwright goes without Qt"
fi
for optional in cups pulse sndfile qt6test geany gtk; do
  [[ $depends != *$optional* ]] || fail "listwright cannot be installed without $optional"
done

# Uninstalled, it leaves what every prefix has.
DESTDIR=$work/root cmake -D BUILD="$build" -P "$source/cmake/uninstall.cmake" >log 2>&1 || fail "$(cat log)"
same "what stays" $'bin\ninclude\nlib\nshare\nshare/man' "$(cd "$prefix" && find . -mindepth 1 -printf '%P\n' | sort)"
[ ! -e kept ] || mv kept "$build/install_manifest.txt"
exit "$failed"
