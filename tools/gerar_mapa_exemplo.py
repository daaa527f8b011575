#!/usr/bin/env python3
"""Gera o mapa de exemplo (data/mapa) a partir do GeoJSON de data/brazil/geojson.

Um documento XML do mapa por camada, no formato que o tratador XML da biblioteca lê: cabeçalho
ISO-8859-1, raiz CAMADA, um elemento por objeto, fins de linha CR LF, coordenadas em graus com a
letra do hemisfério (como IntToGrau as escreve), cores em hexadecimal 0x00BBGGRR e o bloco de
informações <Informacoes>. Também escreve data/mapa/camadas.txt, a lista das camadas na ordem de
desenho (arquivo;nome;tipo, em UTF-8).

Só a biblioteca padrão do Python 3. Uso, da raiz do repositório:

    python3 tools/gerar_mapa_exemplo.py [--origem data/brazil/geojson] [--destino data/mapa]

A saída é determinística: rodar de novo dá os mesmos bytes.
"""

import argparse
import json
import math
import os
import sys

CABECALHO = '<?xml version="1.0" encoding="ISO-8859-1"?>'
RAIZ = "CAMADA"

# Estilos de caneta e de pincel, nos ordinais que os documentos guardam.
CANETA_SOLIDA, CANETA_TRACEJADA, CANETA_PONTILHADA = 0, 1, 2
PINCEL_SOLIDO, PINCEL_VAZIO, PINCEL_DIAGONAL = 0, 1, 4

NOMES_DOS_PAISES = {
    "Argentina": "Argentina", "Bolivia": "Bolívia", "Brazil": "Brasil", "Chile": "Chile",
    "Colombia": "Colômbia", "Ecuador": "Equador", "Falkland Is.": "Ilhas Malvinas",
    "Guyana": "Guiana", "Peru": "Peru", "Paraguay": "Paraguai", "Suriname": "Suriname",
    "Uruguay": "Uruguai", "Venezuela": "Venezuela",
}


def cor(r, g, b):
    """A cor 0x00BBGGRR em hexadecimal, com 6 dígitos maiúsculos."""
    return "%06X" % (r | (g << 8) | (b << 16))


def segundos(graus):
    """Graus decimais em segundos de arco (a unidade das posições do mapa)."""
    return int(math.floor(graus * 3600.0 + 0.5))


def grau(valor, latitude):
    """O texto de IntToGrau: graus (2 dígitos na latitude, 3 na longitude), minutos, segundos."""
    modulo = abs(valor)
    if latitude:
        letra = "S" if valor < 0 else "N"
        largura = 2
    else:
        letra = "W" if valor < 0 else "E"
        largura = 3
    return "%0*d°%02d'%02d''%s" % (largura, modulo // 3600, modulo % 3600 // 60, modulo % 60, letra)


def escapar(texto):
    """Texto seguro dentro de aspas duplas e de elementos."""
    return (str(texto).replace("&", "&amp;").replace("<", "&lt;")
            .replace(">", "&gt;").replace('"', "&quot;"))


def informacoes(campos):
    """O bloco de informações, como ObterXMLStrings o escreve."""
    if not campos:
        return ["<Informacoes/>"]
    linhas = ["<Informacoes>"]
    for rotulo, valor in campos:
        linhas.append("<Informacao><Rotulo>%s</Rotulo><Valor>%s</Valor></Informacao>"
                      % (escapar(rotulo), escapar(valor)))
    linhas.append("</Informacoes>")
    return linhas


def pontos(partes):
    """O elemento Pontos de uma linha ou área: cada parte começa com Tipo="Inicio"."""
    linhas = ["<Pontos>"]
    for parte in partes:
        anterior = None
        primeiro = True
        for lon, lat in parte:
            p = (segundos(lat), segundos(lon))
            if p == anterior:
                continue  # vértices repetidos no segundo de arco não acrescentam nada
            anterior = p
            tipo = ' Tipo="Inicio"' if primeiro else ""
            primeiro = False
            linhas.append('<Ponto%s Latitude="%s" Longitude="%s"/>' % (tipo, grau(p[0], True), grau(p[1], False)))
    linhas.append("</Pontos>")
    return linhas


def area(partes, estilo, cor_caneta, estilo_pincel, cor_pincel, campos):
    linhas = ['<Area Estilo="%d" Cor="%s" EstiloPreenchimento="%d" CorPreenchimento="%s">'
              % (estilo, cor_caneta, estilo_pincel, cor_pincel)]
    return linhas + pontos(partes) + informacoes(campos) + ["</Area>"]


def linha(partes, estilo, cor_caneta, campos):
    linhas = ['<Linha Estilo="%d" Cor="%s">' % (estilo, cor_caneta)]
    return linhas + pontos(partes) + informacoes(campos) + ["</Linha>"]


def ponto(lon, lat, cor_ponto, campos, tamanho_tela=(10, 6), simbolo=-1):
    """Um ponto como o gravador o escreve, mais os tamanhos de tela que o leitor lê."""
    a = ('<Ponto Latitude="%s" Longitude="%s" Letra="" Símbolo="%d" Forma="1" TamanhoMaximoX="%d" '
         'TamanhoMaximoY="%d" TamanhoMinimoX="%d" TamanhoMinimoY="%d" TamanhoNoMundoLatitude="72" '
         'TamanhoNoMundoLongitude="72" Orientação="0°" FonteNome="DejaVu Sans" FonteCharset="1" '
         'FonteTamanho="8" Cor="%s" TamanhoMaximoNaTelaX="%d" TamanhoMaximoNaTelaY="%d" '
         'TamanhoMinimoNaTelaX="%d" TamanhoMinimoNaTelaY="%d">'
         % (grau(segundos(lat), True), grau(segundos(lon), False), simbolo,
            tamanho_tela[0], tamanho_tela[0], tamanho_tela[1], tamanho_tela[1], cor_ponto,
            tamanho_tela[0], tamanho_tela[0], tamanho_tela[1], tamanho_tela[1]))
    return [a] + informacoes(campos) + ["</Ponto>"]


def aneis(geometria):
    """Os anéis (ou linhas) de uma geometria GeoJSON, como listas de (lon, lat)."""
    tipo = geometria["type"]
    c = geometria["coordinates"]
    if tipo in ("Polygon", "MultiLineString"):
        return c
    if tipo == "MultiPolygon":
        return [anel for poligono in c for anel in poligono]
    if tipo == "LineString":
        return [c]
    raise ValueError("geometria inesperada: " + tipo)


# O quadro do continente (graus): partes de geometria inteiramente fora dele ficam de fora do mapa,
# para que "ajustar à janela" enquadre a América do Sul. São ilhas oceânicas longe da costa (Páscoa,
# Galápagos) e trechos de rios homônimos de outros continentes que os dados juntam num só (o
# Colorado dos Estados Unidos, o San Juan da Nicarágua).
QUADRO = (-82.0, -56.5, -34.0, 13.0)  # oeste, sul, leste, norte


def no_quadro(partes):
    """As partes (listas de (lon, lat)) com ao menos um ponto dentro do quadro do continente."""
    oeste, sul, leste, norte = QUADRO
    return [p for p in partes if any(oeste <= lon <= leste and sul <= lat <= norte for lon, lat in p)]


def ler(origem, nome):
    with open(os.path.join(origem, nome), encoding="utf-8") as f:
        return json.load(f)["features"]


def camada_paises(origem):
    linhas = []
    for f in ler(origem, "sa_countries.geojson"):
        p = f["properties"]
        nome = NOMES_DOS_PAISES.get(p["NAME"], p["NAME"])
        fundo = cor(250, 243, 220) if p["ISO_A3"] == "BRA" else cor(236, 232, 222)
        linhas += area(no_quadro(aneis(f["geometry"])), CANETA_SOLIDA, cor(150, 140, 120), PINCEL_SOLIDO, fundo,
                       [("Nome", nome), ("Sigla", p["ISO_A3"])])
    return linhas


def camada_estados(origem):
    linhas = []
    for f in ler(origem, "br_states.geojson"):
        p = f["properties"]
        linhas += area(aneis(f["geometry"]), CANETA_SOLIDA, cor(170, 120, 90), PINCEL_VAZIO, cor(255, 255, 255),
                       [("Nome", p["name"]), ("Sigla", p["postal"]), ("Tipo", "Estado")])
    return linhas


def camada_lagos(origem):
    linhas = []
    for f in ler(origem, "sa_lakes.geojson"):
        nome = f["properties"].get("name") or "Lago"
        linhas += area(aneis(f["geometry"]), CANETA_SOLIDA, cor(70, 120, 190), PINCEL_SOLIDO, cor(170, 205, 240),
                       [("Nome", nome), ("Tipo", "Lago")])
    return linhas


def camada_litoral(origem):
    linhas = []
    for f in ler(origem, "sa_coastline.geojson"):
        linhas += linha(aneis(f["geometry"]), CANETA_SOLIDA, cor(40, 90, 160), [("Nome", "Litoral")])
    return linhas


def camada_rios(origem):
    linhas = []
    for f in ler(origem, "sa_rivers.geojson"):
        nome = " ".join(f["properties"]["name"].split())
        linhas += linha(no_quadro(aneis(f["geometry"])), CANETA_SOLIDA, cor(60, 130, 210), [("Nome", nome), ("Tipo", "Rio")])
    return linhas


def camada_cidades(origem):
    linhas = []
    for f in ler(origem, "br_cities.geojson"):
        p = f["properties"]
        lon, lat = f["geometry"]["coordinates"]
        capital = p["name"] == "Brasília"
        linhas += ponto(lon, lat, cor(200, 30, 30) if capital else cor(60, 60, 60),
                        [("Nome", p["name"]), ("Estado", p["adm1name"]), ("População", str(p["pop_max"]))],
                        (12, 8) if capital else (10, 6))
    return linhas


def circulo_trajeto(lon0, lat0, raio, n):
    return [(lon0 + raio * math.cos(2 * math.pi * i / n), lat0 + raio * math.sin(2 * math.pi * i / n))
            for i in range(n)]


def camada_plotagem():
    """Objetos de plotagem sobre o litoral do Nordeste e do Sudeste."""
    linhas = []
    # Meios acompanhados: pontos com nome, tipo e rumo nas informações.
    # O "Identificador" liga cada um à sua entidade no documento de acompanhamento
    # (data/acompanhamento.xml).
    meios = [("Fragata Independência", "Fragata", -34.2, -8.9, 45, "F-01"),
             ("Corveta Barroso", "Corveta", -38.1, -13.6, 200, "C-02"),
             ("Navio-Patrulha Guaíba", "Patrulha", -42.8, -23.6, 90, "P-03")]
    for nome, tipo, lon, lat, rumo, ident in meios:
        linhas += ponto(lon, lat, cor(0, 90, 200), [("Nome", nome), ("Tipo", tipo), ("Rumo", "%d°" % rumo),
                                                   ("Identificador", ident)], (12, 12))
    # Derrota: a rota planejada da fragata, uma linha tracejada.
    derrota = [(-34.2, -8.9), (-34.6, -10.5), (-36.4, -12.4), (-38.1, -13.6), (-38.8, -16.0), (-39.0, -19.0)]
    linhas += linha([derrota], CANETA_TRACEJADA, cor(0, 90, 200), [("Nome", "Derrota da Fragata Independência"),
                                                              ("Identificador", "D-01")])
    # Corredor de tráfego na saída da Baía de Guanabara.
    corredor = [(-43.15, -22.95), (-43.0, -23.4), (-42.2, -23.9), (-41.0, -24.2)]
    linhas += (['<Corredor Estilo="0" Cor="%s" EstiloPreenchimento="%d" CorPreenchimento="%s" Esq="8 MN" Dir="8 MN">'
                % (cor(120, 60, 160), PINCEL_DIAGONAL, cor(200, 170, 230))]
               + pontos([corredor]) + informacoes([("Nome", "Corredor de Tráfego Guanabara")]) + ["</Corredor>"])
    # Área circular: setor de exclusão em torno de Fernando de Noronha.
    linhas += (['<AreaCircular Latitude="%s" Longitude="%s" RaioMaior="60 MN" RaioMenor="20 MN" '
                'AzimuteInicial="300°" AzimuteFinal="60°" Estilo="0" Cor="%s" EstiloPreenchimento="%d" '
                'CorPreenchimento="%s">' % (grau(segundos(-3.85), True), grau(segundos(-32.42), False),
                                            cor(200, 40, 40), PINCEL_DIAGONAL, cor(240, 150, 150))]
               + informacoes([("Nome", "Área de Exclusão Noronha")]) + ["</AreaCircular>"])
    # Trajeto de uma aeronave de patrulha, com dois pontos identificados.
    trajeto = circulo_trajeto(-33.6, -4.6, 2.0, 8)
    linhas.append('<Trajeto Estilo="%d" Cor="%s">' % (CANETA_PONTILHADA, cor(20, 140, 60)))
    linhas += informacoes([("Nome", "Patrulha Aérea Potiguar"), ("Identificador", "T-01")])
    linhas.append("<Pontos>")
    for i, (lon, lat) in enumerate(trajeto):
        linhas.append('<Ponto Latitude="%s" Longitude="%s">' % (grau(segundos(lat), True), grau(segundos(lon), False)))
        campos = [("Ordem", str(i + 1))]
        if i == 0:
            campos += [("Identificador", "P1"), ("Objeto Acompanhado", "Base Aérea de Natal")]
        elif i == 2:
            campos += [("Identificador", "P3")]
        linhas += informacoes(campos)
        linhas.append("</Ponto>")
    linhas.append("</Pontos>")
    linhas.append("</Trajeto>")
    # Nenhum texto: o leitor não lê a posição de um texto, que ficaria em (0, 0), no golfo da Guiné,
    # e puxaria o "ajustar à janela" para longe da América do Sul. Os nomes dos oceanos são
    # montados pela demonstração.
    return linhas


# Camadas na ordem de desenho: arquivo, nome, tipo, gerador.
CAMADAS = [
    ("paises.xml", "Países", "gtcPanoDeFundo", camada_paises),
    ("estados.xml", "Estados", "gtcInterrogavel", camada_estados),
    ("lagos.xml", "Lagos", "gtcInterrogavel", camada_lagos),
    ("litoral.xml", "Litoral", "gtcPanoDeFundo", camada_litoral),
    ("rios.xml", "Rios", "gtcInterrogavel", camada_rios),
    ("cidades.xml", "Cidades", "gtcInterrogavel", camada_cidades),
    ("plotagem.xml", "Plotagem", "gtcEditavel", lambda origem: camada_plotagem()),
]


def gravar_documento(caminho, corpo):
    linhas = [CABECALHO, "<%s>" % RAIZ] + corpo + ["</%s>" % RAIZ]
    dados = "".join(l + "\r\n" for l in linhas).encode("iso-8859-1")  # falha se houver caractere fora
    with open(caminho, "wb") as f:
        f.write(dados)


def main(argv):
    raiz = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--origem", default=os.path.join(raiz, "data", "brazil", "geojson"))
    parser.add_argument("--destino", default=os.path.join(raiz, "data", "mapa"))
    args = parser.parse_args(argv)

    os.makedirs(args.destino, exist_ok=True)
    lista = ["# Camadas do mapa de exemplo, na ordem de desenho: arquivo;nome;tipo",
             "# (gerado por tools/gerar_mapa_exemplo.py)"]
    for arquivo, nome, tipo, gerar in CAMADAS:
        corpo = gerar(args.origem)
        gravar_documento(os.path.join(args.destino, arquivo), corpo)
        lista.append("%s;%s;%s" % (arquivo, nome, tipo))
    with open(os.path.join(args.destino, "camadas.txt"), "w", encoding="utf-8", newline="\n") as f:
        f.write("\n".join(lista) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
