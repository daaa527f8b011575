#!/usr/bin/env python3
"""Acrescenta a um desenho DGN v7 feito pelo ogr2ogr os elementos que o escritor do GDAL não
grava: uma forma preenchida, uma elipse, um arco e uma célula com uma linha e uma forma.

Uso: gerar_dgn_arcos_e_celulas.py BASE.dgn SAIDA.dgn

BASE.dgn é um desenho em graus (MASTER_UNIT_NAME=dg, 1000 subunidades, 1000 UOR por subunidade)
cujo primeiro elemento gráfico é a linha de (-45, -20) a (-44, -19); dela saem a escala e a
origem das coordenadas. Os elementos novos vão antes do fim do desenho.
"""
import struct
import sys


def i32(v):
    """Inteiro de 32 bits do DGN: a palavra alta primeiro, cada palavra little-endian."""
    v &= 0xFFFFFFFF
    return struct.pack('<HH', v >> 16, v & 0xFFFF)


def le_i32(b, o):
    alta, baixa = struct.unpack_from('<HH', b, o)
    v = (alta << 16) | baixa
    return v - (1 << 32) if v >= 1 << 31 else v


def vax(x):
    """Double no formato D_floating do VAX, em palavras de 16 bits como o DGN guarda."""
    if x == 0:
        return b'\0' * 8
    bits, = struct.unpack('<Q', struct.pack('<d', x))
    sinal = bits >> 63
    expoente = ((bits >> 52) & 0x7FF) - 1023 + 129
    mantissa = (bits & ((1 << 52) - 1)) << 3
    v = (sinal << 63) | (expoente << 55) | mantissa
    return struct.pack('<HHHH', (v >> 48) & 0xFFFF, (v >> 32) & 0xFFFF, (v >> 16) & 0xFFFF, v & 0xFFFF)


def elementos(b):
    i, lista = 0, []
    while i + 4 <= len(b):
        if struct.unpack_from('<H', b, i)[0] == 0xFFFF:
            break
        n, = struct.unpack_from('<H', b, i + 2)
        lista.append(b[i:i + 4 + 2 * n])
        i += 4 + 2 * n
    return lista


class Desenho:
    def __init__(self, base):
        linha = next(e for e in elementos(base) if e[1] & 0x7F == 4)
        x0, y0, x1, _ = (le_i32(linha, 38 + 4 * k) for k in range(4))
        self.escala = float(x1 - x0)  # UOR por grau
        self.ox = x0 + 45 * self.escala
        self.oy = y0 + 20 * self.escala

    def uor(self, lon, lat):
        return round(lon * self.escala + self.ox), round(lat * self.escala + self.oy)

    def cabecalho(self, tipo, nivel, corpo, pontos, cor, espessura=0, estilo=0, complexo=False, ligacao=b''):
        xs = [p[0] for p in pontos]
        ys = [p[1] for p in pontos]
        faixa = b''.join(i32(v ^ 0x80000000) for v in (min(xs), min(ys), 0, max(xs), max(ys), 0))
        tamanho = 36 + len(corpo) + len(ligacao)
        indice = (36 + len(corpo) - 32) // 2
        propriedades = 0x0800 if ligacao else 0
        simbologia = (cor << 8) | (espessura << 3) | estilo
        return (bytes([nivel | (0x80 if complexo else 0), tipo]) + struct.pack('<H', (tamanho - 4) // 2) + faixa
                + struct.pack('<HHHH', 0, indice, propriedades, simbologia) + corpo + ligacao)

    def poligonal(self, tipo, nivel, graus, cor, espessura=0, estilo=0, complexo=False, preenchimento=None):
        pontos = [self.uor(*g) for g in graus]
        corpo = struct.pack('<H', len(pontos)) + b''.join(i32(x) + i32(y) for x, y in pontos)
        ligacao = b''
        if preenchimento is not None:
            ligacao = bytes([0x07, 0x10, 0x41, 0x00, 0x02, 0x08, 0x01, 0x00, preenchimento, 0, 0, 0, 0, 0, 0, 0])
        return self.cabecalho(tipo, nivel, corpo, pontos, cor, espessura, estilo, complexo, ligacao)

    def elipse(self, nivel, centro, a, b, cor):
        cx, cy = self.uor(*centro)
        ra, rb = a * self.escala, b * self.escala
        corpo = vax(ra) + vax(rb) + i32(0) + vax(cx) + vax(cy)
        canto = [(round(cx - ra), round(cy - rb)), (round(cx + ra), round(cy + rb))]
        return self.cabecalho(15, nivel, corpo, canto, cor)

    def arco(self, nivel, centro, raio, inicio, varredura, cor):
        cx, cy = self.uor(*centro)
        r = raio * self.escala
        corpo = (i32(round(inicio * 360000)) + i32(round(varredura * 360000)) + vax(r) + vax(r) + i32(0)
                 + vax(cx) + vax(cy))
        canto = [(round(cx - r), round(cy - r)), (round(cx + r), round(cy + r))]
        return self.cabecalho(16, nivel, corpo, canto, cor)

    def celula(self, nivel, componentes, origem, cor):
        pontos = []
        for c in componentes:
            pontos += [(le_i32(c, 4) ^ -0x80000000, le_i32(c, 8) ^ -0x80000000),
                       (le_i32(c, 16) ^ -0x80000000, le_i32(c, 20) ^ -0x80000000)]
        ox, oy = self.uor(*origem)
        xs = [p[0] for p in pontos]
        ys = [p[1] for p in pontos]
        resto = (struct.pack('<HHH', 0, 0, 0) + struct.pack('<H', 0) + struct.pack('<HHHH', 1 << (nivel - 1), 0, 0, 0)
                 + i32(min(xs)) + i32(min(ys)) + i32(max(xs)) + i32(max(ys))
                 + i32(0x7FFFFFFF) + i32(0) + i32(0) + i32(0x7FFFFFFF) + i32(ox) + i32(oy))
        total = (len(resto) + sum(len(c) for c in componentes)) // 2
        corpo = struct.pack('<H', total) + resto
        return self.cabecalho(2, nivel, corpo, pontos, cor) + b''.join(componentes)


def main():
    base = open(sys.argv[1], 'rb').read()
    d = Desenho(base)
    fim = base.rindex(b'\xff\xff')
    novos = [
        d.poligonal(6, 7, [(-50, -10), (-48, -10), (-48, -12), (-50, -10)], cor=3, espessura=1, preenchimento=2),
        d.elipse(8, (-40, -10), 2.0, 1.0, cor=4),
        d.arco(9, (-40, -20), 1.5, 0.0, 90.0, cor=5),
        d.celula(10, [d.poligonal(4, 10, [(-55, -25), (-54, -24)], cor=6, complexo=True),
                      d.poligonal(6, 10, [(-55, -26), (-54, -26), (-54, -27), (-55, -26)], cor=6, complexo=True)],
                 (-55, -25), cor=6),
    ]
    open(sys.argv[2], 'wb').write(base[:fim] + b''.join(novos) + base[fim:])


if __name__ == '__main__':
    main()
