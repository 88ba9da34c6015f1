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
#   run      plot only this run, counted from 1; negative numbers count from the
#            end: -1 is the last run
#   eps      the required accuracy, drawn as a line
#   picture  the output file, by default convergence.png; SVG if the name ends in
#            .svg, else PNG

if (!exists("log")) { print "no log given: -e \"log='FILE'\""; exit status 1 }
if (!exists("run")) run = 0
if (!exists("picture")) picture = "convergence.png"

# Creates the data block $runs with one part per run that has estimates: its
# title, then lines of iteration and estimate. Estimates of 0 or infinity are
# skipped: they cannot be shown on a logarithmic axis.
load sprintf("<awk -v run=%d '", run).'\
  / method start\.$/ { title[++count] = /Newton/ ? "метод Ньютона" : "метод простых итераций" } \
  /^Iteration: / { iteration = $2 } \
  /^Epsilon: [0-9]/ && $2 + 0 > 0 { of[++points] = count; point[points] = iteration " " $2 } \
  END { \
    print "$runs << END"; \
    if (run < 0) run += count + 1; \
    for (i = 1; i <= points; i++) { \
      if (run && of[i] != run) continue; \
      if (of[i] != last) print "\n\n\"" title[of[i]] (count > 2 ? ", запуск " of[i] : "") "\""; \
      last = of[i]; \
      print point[i]; \
    } \
    print "END"; \
  }'."' ".log
if (|$runs| == 0) { print "nothing to draw in ".log; exit status 1 }
stats $runs using 1 name "iteration" nooutput
stats $runs using 2 name "estimate" nooutput

set encoding utf8
look = 'size 820,480 font "Liberation Sans,12" linewidth 1.5'
if (strlen(picture) > 4 && picture[strlen(picture) - 3:] eq ".svg") {
  eval "set terminal svg ".look." background 'white'"
} else {
  eval "set terminal pngcairo ".look
}
set output picture

set title "Сходимость: оценка погрешности на каждой итерации"
set xlabel "Номер итерации k"
set ylabel "Оценка погрешности (Epsilon)"
set logscale y
set format y "10^{%T}"
set yrange [10.0**floor(log10(estimate_min / 2)) : *]
set xrange [0.5 : iteration_max + 0.5]
if (iteration_max <= 25) set xtics 1
set rmargin 5
set border 3
set tics nomirror
set grid ytics linecolor rgb "#dddddd" linetype 1 linewidth 0.5
set key top right reverse Left samplen 2
set linetype 1 linecolor rgb "#1f5fa8" pointtype 7
set linetype 2 linecolor rgb "#c8501e" pointtype 5
set linetype 3 linecolor rgb "#2e8540" pointtype 9
set linetype 4 linecolor rgb "#7b4ea3" pointtype 13
set linetype cycle 4

curves = "plot for [i = 0:iteration_blocks - 1] $runs index i using 1:2 \
  with linespoints pointnumber 40 pointsize 1.1 title columnheader(1)"
if (exists("eps")) curves = curves.sprintf(", eps with lines linetype 1 dashtype 2 \
  linecolor rgb '#777777' title 'заданная точность ε = %.5f'", eps)
eval curves
