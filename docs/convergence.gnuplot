# SPDX-FileCopyrightText: 2026 the Nordika authors
# SPDX-License-Identifier: MIT
#
# Plots the error estimates of a run log (its lines "Epsilon: ") against the
# iteration number, one curve per run:
#
#   gnuplot -e "log='log-Sun-Nov-15-16-25-52-2026.txt'" docs/convergence.gnuplot
#
# Variables, separated by semicolons as in -e "log='a.txt b.txt'; run=-1":
#   log      one file, or several separated by blanks; their runs are numbered
#            consecutively
#   names    a file: its line k is the name of the file "k" in the legend; by
#            default the names of the files
#   run      plot only this run, counted from 1; negative numbers count from the
#            end: -1 is the last run
#   eps      the required accuracy, drawn as a line
#   picture  the output file, by default convergence.png; SVG or PDF if the name
#            ends in .svg or .pdf, else PNG
#   table    writes the points to this file; no picture

if (!exists("log")) { print "no log given: -e \"log='FILE'\""; exit status 1 }
if (!exists("names")) names = ""
if (!exists("run")) run = 0
if (!exists("picture")) picture = "convergence.png"

# Creates the data block $runs with one part per run that has estimates: its
# title, then lines of iteration and estimate. Estimates of 0 or infinity are
# skipped: they cannot be shown on a logarithmic axis. Lines before the first start
# line of a file are a run whose start was cut off.
load sprintf("<awk -v run=%d -v names='%s' '", run, names).'\
  function begin(method) { \
    title[++count] = method; file[count] = FILENAME; runs[FILENAME]++; \
    isBegun[FILENAME] = 1; iteration = ""; \
  } \
  function label(i, name) { \
    name = file[i] in shown ? shown[file[i]] : file[i]; \
    gsub(/"/, "\047", name); \
    return (ARGC > 2 ? name ": " : "") title[i] \
      (runs[file[i]] > 1 ? ", запуск " i : ""); \
  } \
  BEGIN { while (names != "" && (getline line < names) > 0) shown[++lines] = line } \
  { sub(/\r$/, "") } \
  / method start\.$/ { begin(/Newton/ ? "метод Ньютона" : "метод простых итераций") } \
  /^Iteration: / { if (!(FILENAME in isBegun)) begin("без начала"); iteration = $2 } \
  /^Epsilon: [0-9]/ && $2 + 0 > 0 && iteration != "" { \
    of[++points] = count; point[points] = iteration " " $2 \
  } \
  END { \
    print "$runs << END"; \
    if (run < 0) run = -run > count ? count + 1 : run + count + 1; \
    for (i = 1; i <= points; i++) { \
      if (run && of[i] != run) continue; \
      if (of[i] != last) print "\n\n\"" label(of[i]) "\""; \
      last = of[i]; \
      length_of[last] = point[i] + 0; \
      print point[i]; \
    } \
    print "END"; \
    for (i in length_of) shortest = shortest && shortest < length_of[i] ? shortest : length_of[i]; \
    print "shortest = " shortest + 0; \
  }'."' ".log
if (|$runs| == 0) { print "nothing to draw in ".log; exit status 1 }
stats $runs using 1 name "iteration" nooutput
stats $runs using 2 name "estimate" nooutput

set encoding utf8
height = 480 + (iteration_blocks > 4 ? 18 * (iteration_blocks - 4) : 0)
look = 'font "Liberation Sans,12" linewidth 1.5'
kind = strlen(picture) > 4 ? picture[strlen(picture) - 3:] : ""
if (exists("table")) {
  set table table
} else {
  if (kind eq ".svg") {
    eval sprintf("set terminal svg size 820,%d ", height).look." background 'white'"
  } else {
    if (kind eq ".pdf") {
      eval sprintf("set terminal pdfcairo size 8.2in,%gin ", height / 100.0).look
    } else {
      eval sprintf("set terminal pngcairo size 820,%d ", height).look
    }
  }
  set output picture
}

set title "Сходимость: оценка погрешности на каждой итерации"
set xlabel "Номер итерации k"
set ylabel "Оценка погрешности (Epsilon)"
set logscale y
set format y (exists("table") ? "%g" : "10^{%T}")
lowest = exists("eps") && eps < estimate_min ? eps : estimate_min
set yrange [10.0**floor(log10(lowest / 2)) : *]
set xrange [0.5 : iteration_max + 0.5]
if (iteration_max <= 25) set xtics 1
# A long run would squeeze a short one into the axis.
if (iteration_max > 10 * shortest) {
  set logscale x
  set xrange [1 : iteration_max * 1.1]
}
set rmargin 5
set border 3
set tics nomirror
set grid ytics linecolor rgb "#dddddd" linetype 1 linewidth 0.5
set key below vertical maxcols 2 reverse Left samplen 2 noenhanced
set linetype 1 linecolor rgb "#1f5fa8" pointtype 7
set linetype 2 linecolor rgb "#c8501e" pointtype 5
set linetype 3 linecolor rgb "#2e8540" pointtype 9
set linetype 4 linecolor rgb "#7b4ea3" pointtype 13
set linetype 5 linecolor rgb "#a0522d" pointtype 11
set linetype 6 linecolor rgb "#0f7f8f" pointtype 15
set linetype 7 linecolor rgb "#b03060" pointtype 6
set linetype 8 linecolor rgb "#555555" pointtype 4
set linetype cycle 8

curves = "plot for [i = 0:iteration_blocks - 1] $runs index i using 1:2 \
  with linespoints pointnumber 40 pointsize 1.1 title columnheader(1)"
if (exists("eps")) curves = curves.sprintf(", %.17g with lines linetype 1 dashtype 2 \
  linecolor rgb '#777777' title 'заданная точность ε = %g'", eps, eps)
eval curves
