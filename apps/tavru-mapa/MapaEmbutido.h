#pragma once
/// \file
/// O mapa de demonstração: o mapa de exemplo em documentos XML (embutidos como recursos), a
/// figura de satélite, a grade, os nomes dos oceanos e a camada de plotagem montada em código.

namespace tavru {

class TGis;

/// Acrescenta às camadas do controle, de baixo para cima: "Países", "Satélite" (o recorte do Blue
/// Marble), "Estados", "Lagos", "Litoral", "Rios", "Cidades" e "Plotagem" (os documentos de
/// ":/mapa", ver `CarregarMapaDeExemplo`), "Grade" (meridianos e paralelos de 10 em 10 graus, de 90° W a 30° W e de 60° S a 20° N),
/// "Textos" (os oceanos) e, na camada "Plotagem", os objetos que o documento não guarda (meios
/// acompanhados, derrota, setor, elipse, composto, trajeto; ver `MontarPlotagem`). Põe a cor do
/// mar no fundo do mapa, a fonte dos rótulos, o halo branco e os rótulos sem sobreposição, e a
/// seta no centro da área dos objetos; não redesenha (quem chama termina com `Zerado` e
/// `AjustarVistaInicial`).
void MontarMapaEmbutido(TGis &gis);

/// Mostra a América do Sul (35° S a 7° N, 75° W a 28° W) no tamanho atual do controle e redesenha.
/// A figura de satélite só aparece com zoom a partir de 1,5 vez o desta vista, para que a vista
/// inicial fique limpa: é o intervalo de zoom da camada "Satélite".
void AjustarVistaInicial(TGis &gis);

} // namespace tavru
