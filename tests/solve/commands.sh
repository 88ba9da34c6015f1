# SPDX-FileCopyrightText: 2026 the Nordika authors
# SPDX-License-Identifier: MIT
#
# The commands of the transcripts. A transcript has a command after "$" and, after ">",
# its further lines. There follow the lines of its standard output, those of its standard
# error stream after "!", and after "?" its exit status, if that is not 0. Before what
# follows "! ..." the stream may have anything.

solve() { "${program:?}" "$@" ${refusing:+--log kept}; }
newton() { solve --method newton --start "$@"; }

# An example of the guide, and two systems with golden traces.
guide() {
  newton 0 0 -a 0.4 --functions '2*x1-cos(x2)' '2*x2-sin(x1)-a' \
    --jacobian 2 'sin(x2)' '-cos(x1)' 2 "$@"
}
circle() { newton 1 2 -a 4 --functions 'x1^2+x2^2-a' x1-x2 --jacobian '2*x1' '2*x2' 1 -1 "$@"; }
spiral() { solve --start 0 0 --eps 0.001 --functions '0.5*cos(x2)' '0.5*sin(x1)+0.2' "$@"; }

half() { solve --functions 0.5 --start 0 "$@"; }
root() {
  start=$1
  shift
  newton "$start" --functions x1^2-2 --jacobian "$@"
}
check() {
  start=$1 function=$2 element=$3
  shift 3
  newton "$start" --functions "$function" --jacobian "$element" --check-jacobian "$@"
}

# Solves the problem file of these lines.
file() {
  printf '%s\n' "$@" >p.toml
  solve --config p.toml
}

# Solves a problem file of each text, in which \n ends lines. Prints the answers alone.
files() {
  for text; do
    printf '%b' "$text" >p.toml
    echo $(solve --config p.toml 2>errors-of-file || tail -n 1 errors-of-file)
  done
}

# nordika-plot as it is installed.
plot() {
  mkdir -p usr/bin usr/share/nordika
  sed 's|@recipe_from_bin@|../share/nordika/convergence.gnuplot|' "$examples/../packaging/nordika-plot.in" >usr/bin/nordika-plot
  cp "$examples/../docs/convergence.gnuplot" usr/share/nordika
  sh usr/bin/nordika-plot "$@"
}

# The points that the recipe draws by these settings, and the titles of the curves.
points() {
  LC_ALL=C.UTF-8 gnuplot -d -e "table='table'; $1" "$examples/../docs/convergence.gnuplot" &&
    sed -n 's/^# Curve title: "\(.*\)"/\1/p; s/^ \([^ ]* [^ ]*\) .*/\1/p' table
}

# The titles in a picture.
titles() { grep -o '<title>[^<]*' "$1" | sed -n 's/.*>\(.*[^ ]\)$/\1/p' | grep -v '^gnuplot_plot\|^Gnuplot'; }

# What bash offers for the last of these words.
offers() {
  bash -c '. "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); function=$(complete -p "$1")
    function=${function#*-F }; "${function% *}" "${program:?}" && echo "[${COMPREPLY[*]}]"' \
    bash "$examples/../packaging/completion.bash" "$@"
}

long() {
  printf '%s' "$1"
  yes "$2" | head -n 25000 | tr -d '\n'
}

limited() { (
  ulimit -f 1
  "$@"
); }

# Wrong usage touches no log.
refused() {
  echo old >kept
  refusing=yes
  "$@"
  status=$?
  grep -qx old kept || echo "the log was touched"
  return $status
}

# Refuses a problem file of each text. Of a fault of TOML only the line counts: the
# library's words differ from version to version.
faults() {
  for text; do
    printf '%b' "$text" >p.toml
    refused solve --config p.toml 2>told
    status=$?
    sed -E 's/(:[0-9]+: )E(rror while|ncountered) .*/\1.../' told >&2
  done
  return $status
}

# The numbers in these lines, as the program writes them; "−" is a minus sign, too.
numbers() { sed 's/−/-/g; s/\\//g' | grep -oP '(?<![\w^.-])-?[0-9]+(\.[0-9]+)?(e-?[0-9]+)?' | LC_ALL=C awk '{ printf "%s ", $1 + 0 } END { print "" }'; }

# The numbers of each page of the window in its first line that has the pattern: a field
# of the form, its limits in both manual pages and in the guide.
limits() { (
  cd "$examples/.."
  grep -A 60 "name=\"$1\"" src/app/widget.ui | grep -A 1 'name="m..imum"' | grep '<[nd][uo]' | head -n 2 | numbers
  for place in "packaging/man/nordika.1.in:$2" "packaging/man/ru/nordika.1.in:$3" "README.ru.md:$4"; do
    grep -m 1 -e "${place#*:}" "${place%%:*}" | cut -d '|' -f 1,5 | numbers
  done
) | sort | uniq -c | tr -s ' '; }

# The default of an option: in its help, both manual pages and the guide.
default() { (
  solve --help | xargs | grep -oP -e "$1 NUMBER [^[]*\[\K[^]]*" | numbers
  cd "$examples/../packaging/man"
  for page in nordika-solve.1.in ru/nordika-solve.1.in; do
    sed 's/\\//g' $page | sed -n "/^\.BI $1 /,/^\.TP/p" | grep 'default is\|Если не зад' | numbers
  done
  grep -e "^| .$1 " ../../README.ru.md | cut -d '|' -f 4 | numbers
) | sort | uniq -c | tr -s ' '; }
