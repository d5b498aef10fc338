# Seed, target and adjusted spectrum of the wave in out/. Called from ./run, which sets `sample`.
set terminal pngcairo size 1000,700 font "IPAGothic,13"
set output "out/wave.png"
set datafile separator ","
set encoding utf8
set title "加速度応答スペクトル（h = 5 %）".sample
set xlabel "周期（秒）"
set ylabel "加速度応答（gal）"
set logscale xy
set xrange [0.01:10]
set yrange [1:3000]
set grid xtics ytics mxtics mytics lc rgb "#d0d0d0"
set key top right
plot "out/seed_AccSpec.csv" skip 1 using 1:2 with lines lc rgb "#9aa7b1" title "原種波形", \
     "build/release/bin/LowSpec/h20_h.csv" skip 1 using 1:2 with lines lc rgb "#d1495b" lw 3 title "下限スペクトル（目標）", \
     "out/wave_AccSpec.csv" skip 1 using 1:2 with lines lc rgb "#16324f" lw 1.5 title "調整後"
