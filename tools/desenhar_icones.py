#!/usr/bin/env python3
"""Desenha os bitmaps da barra de manipulação (24 x 24, PNG com transparência) em control/icones/.

Só usa a biblioteca padrão: cada ícone é uma lista de figuras (círculos, anéis, segmentos grossos,
retângulos, polígonos) pintadas em ordem sobre um fundo transparente, com 4 x 4 amostras por
pixel para suavizar as bordas. Rode de novo depois de mudar um desenho:

    python3 tools/desenhar_icones.py
"""

import math
import os
import struct
import zlib

LADO = 24
AMOSTRAS = 4

AZUL_ESCURO = (23, 58, 110, 255)
AZUL = (52, 120, 200, 255)
AZUL_CLARO = (190, 222, 250, 220)
VERDE = (60, 150, 70, 255)
CINZA = (70, 70, 70, 255)
MARROM = (110, 70, 30, 255)
BRANCO = (255, 255, 255, 255)


def circulo(cx, cy, r, cor):
    return lambda x, y: cor if (x - cx) ** 2 + (y - cy) ** 2 <= r * r else None


def anel(cx, cy, r, largura, cor):
    def f(x, y):
        d = math.hypot(x - cx, y - cy)
        return cor if abs(d - r) <= largura / 2 else None
    return f


def segmento(x1, y1, x2, y2, largura, cor):
    def f(x, y):
        dx, dy = x2 - x1, y2 - y1
        t = ((x - x1) * dx + (y - y1) * dy) / float(dx * dx + dy * dy)
        t = max(0.0, min(1.0, t))
        d = math.hypot(x - (x1 + t * dx), y - (y1 + t * dy))
        return cor if d <= largura / 2 else None
    return f


def retangulo(x1, y1, x2, y2, cor):
    return lambda x, y: cor if x1 <= x <= x2 and y1 <= y <= y2 else None


def poligono(pontos, cor):
    def f(x, y):
        dentro = False
        n = len(pontos)
        for i in range(n):
            (xa, ya), (xb, yb) = pontos[i], pontos[(i + 1) % n]
            if (ya > y) != (yb > y) and x < xa + (y - ya) * (xb - xa) / (yb - ya):
                dentro = not dentro
        return cor if dentro else None
    return f


def tracejado(x1, y1, x2, y2, largura, cor, traco=3.0):
    """Contorno de retângulo tracejado (traços e vãos de `traco` pixels)."""
    lados = [(x1, y1, x2, y1), (x2, y1, x2, y2), (x2, y2, x1, y2), (x1, y2, x1, y1)]
    figuras = []
    for (ax, ay, bx, by) in lados:
        comprimento = math.hypot(bx - ax, by - ay)
        passos = int(comprimento // (2 * traco)) + 1
        for k in range(passos):
            t0 = (2 * k * traco) / comprimento
            t1 = min(1.0, (2 * k + 1) * traco / comprimento)
            if t0 >= 1.0:
                break
            figuras.append(segmento(ax + (bx - ax) * t0, ay + (by - ay) * t0,
                                    ax + (bx - ax) * t1, ay + (by - ay) * t1, largura, cor))
    return figuras


def lupa(cx=10.0, cy=10.0, r=6.5):
    return [
        segmento(cx + r * 0.7, cy + r * 0.7, 21.5, 21.5, 3.6, MARROM),
        circulo(cx, cy, r, AZUL_CLARO),
        anel(cx, cy, r, 2.0, AZUL_ESCURO),
    ]


def seta(cx, cy, dx, dy, comprimento, cor):
    """Seta com a ponta em (cx + dx * comprimento, cy + dy * comprimento)."""
    px, py = cx + dx * comprimento, cy + dy * comprimento
    nx, ny = -dy, dx
    base_x, base_y = px - dx * 4.5, py - dy * 4.5
    return [
        segmento(cx, cy, base_x, base_y, 2.2, cor),
        poligono([(px, py), (base_x + nx * 3.6, base_y + ny * 3.6), (base_x - nx * 3.6, base_y - ny * 3.6)], cor),
    ]


def icone_ajustar():
    figuras = [circulo(12, 12, 5.5, AZUL), anel(12, 12, 5.5, 1.2, AZUL_ESCURO),
               segmento(6.8, 12, 17.2, 12, 1.0, BRANCO), segmento(12, 6.8, 12, 17.2, 1.0, BRANCO)]
    # Quatro cantos em L: o mapa inteiro cabe na janela.
    for (x, y, sx, sy) in [(2, 2, 1, 1), (22, 2, -1, 1), (2, 22, 1, -1), (22, 22, -1, -1)]:
        figuras.append(segmento(x, y, x + sx * 6, y, 2.2, VERDE))
        figuras.append(segmento(x, y, x, y + sy * 6, 2.2, VERDE))
    return figuras


def icone_mover():
    figuras = []
    for (dx, dy) in [(1, 0), (-1, 0), (0, 1), (0, -1)]:
        figuras += seta(12, 12, dx, dy, 10.5, AZUL_ESCURO)
    figuras.append(circulo(12, 12, 2.2, AZUL))
    return figuras


def icone_zoom_retangulo():
    figuras = tracejado(2.5, 2.5, 15.5, 12.5, 1.4, CINZA)
    figuras += [segmento(15.5, 15.5, 21.5, 21.5, 3.4, MARROM), circulo(13, 13, 5, AZUL_CLARO),
                anel(13, 13, 5, 1.8, AZUL_ESCURO)]
    return figuras


def icone_ampliar():
    return lupa() + [segmento(6.5, 10, 13.5, 10, 2.2, AZUL_ESCURO), segmento(10, 6.5, 10, 13.5, 2.2, AZUL_ESCURO)]


def icone_reduzir():
    return lupa() + [segmento(6.5, 10, 13.5, 10, 2.2, AZUL_ESCURO)]


def rasterizar(figuras):
    linhas = []
    for py in range(LADO):
        linha = bytearray([0])  # filtro "nenhum"
        for px in range(LADO):
            soma = [0.0, 0.0, 0.0, 0.0]
            for sy in range(AMOSTRAS):
                for sx in range(AMOSTRAS):
                    x = px + (sx + 0.5) / AMOSTRAS
                    y = py + (sy + 0.5) / AMOSTRAS
                    cor = (0, 0, 0, 0)
                    for figura in figuras:  # pintadas em ordem: a última fica por cima
                        c = figura(x, y)
                        if c is not None:
                            a = c[3] / 255.0
                            cor = tuple(c[i] * a + cor[i] * (1 - a) for i in range(3)) + (c[3] + cor[3] * (1 - a),)
                    alfa = cor[3]
                    for i in range(3):
                        soma[i] += cor[i] * alfa
                    soma[3] += alfa
            n = AMOSTRAS * AMOSTRAS
            alfa = soma[3] / n
            rgb = [int(round(soma[i] / soma[3])) if soma[3] else 0 for i in range(3)]
            linha += bytes(rgb + [int(round(alfa))])
        linhas.append(bytes(linha))
    return b"".join(linhas)


def gravar_png(caminho, dados):
    def bloco(tipo, conteudo):
        return (struct.pack(">I", len(conteudo)) + tipo + conteudo
                + struct.pack(">I", zlib.crc32(tipo + conteudo) & 0xFFFFFFFF))
    cabecalho = struct.pack(">IIBBBBB", LADO, LADO, 8, 6, 0, 0, 0)
    with open(caminho, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n" + bloco(b"IHDR", cabecalho)
                + bloco(b"IDAT", zlib.compress(dados, 9)) + bloco(b"IEND", b""))


ICONES = {
    "ajustar_zoom.png": icone_ajustar,
    "mover.png": icone_mover,
    "zoom_retangulo.png": icone_zoom_retangulo,
    "ampliar.png": icone_ampliar,
    "reduzir.png": icone_reduzir,
}


def main():
    raiz = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    destino = os.path.join(raiz, "control", "icones")
    os.makedirs(destino, exist_ok=True)
    for nome, desenho in ICONES.items():
        gravar_png(os.path.join(destino, nome), rasterizar(desenho()))
        print(os.path.join(destino, nome))


if __name__ == "__main__":
    main()
