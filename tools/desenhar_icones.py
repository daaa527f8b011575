#!/usr/bin/env python3
"""Desenha os bitmaps das barras do mapa (manipulação, geral e inclusão) em control/icones/: cada
um em 24 x 24 (nome.png) e em 48 x 48 (nome@2x.png, para telas de densidade 2), PNG com
transparência.

Só usa a biblioteca padrão: cada ícone é uma lista de figuras (círculos, anéis, arcos, segmentos
grossos, retângulos, polígonos) desenhadas num quadro de 24 unidades e pintadas em ordem sobre um
fundo transparente, com 4 x 4 amostras por pixel para suavizar as bordas; a versão de 48 avalia as
mesmas figuras com o dobro de pixels. Rode de novo depois de mudar um desenho:

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
VERMELHO = (200, 45, 40, 255)
AMARELO = (240, 190, 40, 255)
PRETO = (30, 30, 30, 255)
VERDE_CLARO = (150, 200, 120, 200)


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


def arco(cx, cy, r, largura, graus1, graus2, cor):
    """Trecho de anel de graus1 a graus2 (graus, 0 à direita, crescendo no sentido horário)."""
    def f(x, y):
        d = math.hypot(x - cx, y - cy)
        if abs(d - r) > largura / 2:
            return None
        a = math.degrees(math.atan2(y - cy, x - cx)) % 360
        dentro = graus1 <= a <= graus2 if graus1 <= graus2 else (a >= graus1 or a <= graus2)
        return cor if dentro else None
    return f


def caminho(pontos, largura, cor):
    """Linha poligonal aberta de segmentos grossos."""
    return [segmento(ax, ay, bx, by, largura, cor) for (ax, ay), (bx, by) in zip(pontos, pontos[1:])]


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


def icone_interrogar():
    # Um balão azul com o ponto de interrogação.
    return [circulo(12, 12, 10.5, AZUL), anel(12, 12, 10.5, 1.2, AZUL_ESCURO),
            arco(12, 9, 3.6, 2.4, 180, 80, BRANCO),
            segmento(12.6, 12.5, 12, 14.5, 2.4, BRANCO), circulo(12, 18, 1.5, BRANCO)]


def icone_editar():
    # Um lápis inclinado escrevendo um traço.
    corpo = [(17.5, 3.0), (21.0, 6.5), (9.0, 18.5), (5.5, 15.0)]
    return [segmento(3, 21.5, 12, 21.5, 1.4, CINZA),
            poligono(corpo, AMARELO), poligono([(17.5, 3.0), (21.0, 6.5), (19.6, 7.9), (16.1, 4.4)], VERMELHO),
            poligono([(5.5, 15.0), (9.0, 18.5), (3.0, 21.0)], (230, 200, 160, 255)),
            circulo(3.8, 20.2, 1.0, PRETO)] + caminho(corpo + [corpo[0]], 1.0, MARROM)


def icone_visualizar():
    # Um olho.
    return [poligono([(1.5, 12), (6, 7), (12, 5.5), (18, 7), (22.5, 12), (18, 17), (12, 18.5), (6, 17)], BRANCO)] \
        + caminho([(1.5, 12), (6, 7), (12, 5.5), (18, 7), (22.5, 12), (18, 17), (12, 18.5), (6, 17), (1.5, 12)],
                  1.6, AZUL_ESCURO) \
        + [circulo(12, 12, 4.6, AZUL), circulo(12, 12, 2.0, PRETO), circulo(10.6, 10.6, 0.9, BRANCO)]


def icone_cor():
    # Um balde despejando tinta sobre um quadrado de fundo.
    return [retangulo(2, 15, 22, 22, (120, 180, 230, 255)), retangulo(2, 15, 22, 16, AZUL_ESCURO),
            poligono([(6, 4), (15, 4), (14, 13), (7, 13)], CINZA), retangulo(6, 4, 15, 6, AZUL_ESCURO),
            segmento(15, 5, 19, 9, 1.6, VERMELHO), circulo(19.2, 11, 1.8, VERMELHO)]


def icone_fonte():
    # A letra A sobre a linha de base.
    return [segmento(4, 21, 12, 3, 3.0, AZUL_ESCURO), segmento(12, 3, 20, 21, 3.0, AZUL_ESCURO),
            segmento(7.5, 14.5, 16.5, 14.5, 2.4, AZUL_ESCURO), segmento(2, 22.5, 22, 22.5, 1.0, CINZA)]


def icone_ponto():
    # Um ponto vermelho com a mira em volta.
    return [anel(12, 12, 8, 1.2, CINZA), segmento(12, 1.5, 12, 6, 1.2, CINZA), segmento(12, 18, 12, 22.5, 1.2, CINZA),
            segmento(1.5, 12, 6, 12, 1.2, CINZA), segmento(18, 12, 22.5, 12, 1.2, CINZA),
            circulo(12, 12, 4.5, VERMELHO), anel(12, 12, 4.5, 1.2, PRETO)]


def icone_linha():
    # Uma linha quebrada com os vértices marcados.
    vertices = [(2.5, 18), (8, 7), (15, 15), (21.5, 4)]
    return caminho(vertices, 2.4, AZUL_ESCURO) + [retangulo(x - 1.8, y - 1.8, x + 1.8, y + 1.8, VERMELHO)
                                                 for (x, y) in vertices]


def icone_area():
    # Um polígono preenchido com o contorno.
    vertices = [(3, 9), (11, 2.5), (21, 7), (19, 19), (8, 21.5)]
    return [poligono(vertices, VERDE_CLARO)] + caminho(vertices + [vertices[0]], 2.0, VERDE)


def icone_area_circular():
    # Um círculo preenchido com o centro e o raio.
    return [circulo(12, 12, 9.5, (150, 190, 235, 220)), anel(12, 12, 9.5, 1.8, AZUL_ESCURO),
            segmento(12, 12, 20.5, 7.5, 1.4, AZUL_ESCURO), circulo(12, 12, 1.8, VERMELHO)]


def icone_imagem():
    # Um quadro com o céu, o sol e uma montanha.
    return [retangulo(2, 4, 22, 20, (170, 210, 245, 255)), circulo(16.5, 8.5, 2.4, AMARELO),
            poligono([(2, 20), (9, 10), (14, 16), (17, 13), (22, 20)], VERDE)] \
        + caminho([(2, 4), (22, 4), (22, 20), (2, 20), (2, 4)], 1.6, CINZA)


def rasterizar(figuras, escala):
    lado = LADO * escala
    linhas = []
    for py in range(lado):
        linha = bytearray([0])  # filtro "nenhum"
        for px in range(lado):
            soma = [0.0, 0.0, 0.0, 0.0]
            for sy in range(AMOSTRAS):
                for sx in range(AMOSTRAS):
                    x = (px + (sx + 0.5) / AMOSTRAS) / escala
                    y = (py + (sy + 0.5) / AMOSTRAS) / escala
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


def gravar_png(caminho_png, dados, lado):
    def bloco(tipo, conteudo):
        return (struct.pack(">I", len(conteudo)) + tipo + conteudo
                + struct.pack(">I", zlib.crc32(tipo + conteudo) & 0xFFFFFFFF))
    cabecalho = struct.pack(">IIBBBBB", lado, lado, 8, 6, 0, 0, 0)
    with open(caminho_png, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n" + bloco(b"IHDR", cabecalho)
                + bloco(b"IDAT", zlib.compress(dados, 9)) + bloco(b"IEND", b""))


ICONES = {
    "ajustar_zoom": icone_ajustar,
    "mover": icone_mover,
    "zoom_retangulo": icone_zoom_retangulo,
    "ampliar": icone_ampliar,
    "reduzir": icone_reduzir,
    "interrogar": icone_interrogar,
    "editar": icone_editar,
    "visualizar": icone_visualizar,
    "cor": icone_cor,
    "fonte": icone_fonte,
    "ponto": icone_ponto,
    "linha": icone_linha,
    "area": icone_area,
    "area_circular": icone_area_circular,
    "imagem": icone_imagem,
}


def main():
    raiz = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    destino = os.path.join(raiz, "control", "icones")
    os.makedirs(destino, exist_ok=True)
    for nome, desenho in ICONES.items():
        for escala, sufixo in ((1, ""), (2, "@2x")):
            arquivo = os.path.join(destino, nome + sufixo + ".png")
            gravar_png(arquivo, rasterizar(desenho(), escala), LADO * escala)
            print(arquivo)


if __name__ == "__main__":
    main()
