#!/usr/bin/env bash
# Gera data/gdal/utm23s.tif com o gdal-bin: uma figura RGB de 80 x 60 pixels de 1 km na zona UTM 23
# sul (EPSG:32723), com quatro quadrantes de cores que uma paleta de 8 bits não guarda exatas
# (noroeste (201, 17, 33), nordeste (23, 181, 47), sudoeste (37, 41, 213), sudeste (251, 223, 11)),
# e visões reduzidas (overviews) de 2 e 4.
set -euo pipefail
cd "$(dirname "$0")/.."
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
python3 - "$tmp/q.ppm" <<'PY'
import sys
w, h = 80, 60
cores = {(0, 0): (201, 17, 33), (1, 0): (23, 181, 47), (0, 1): (37, 41, 213), (1, 1): (251, 223, 11)}
with open(sys.argv[1], 'wb') as f:
    f.write(b'P6 %d %d 255\n' % (w, h))
    for y in range(h):
        for x in range(w):
            f.write(bytes(cores[(x * 2 // w, y * 2 // h)]))
PY
gdal_translate -q -of GTiff -co COMPRESS=DEFLATE -a_srs EPSG:32723 \
  -a_ullr 760000 8260000 840000 8200000 "$tmp/q.ppm" data/gdal/utm23s.tif
gdaladdo -q -r nearest data/gdal/utm23s.tif 2 4
