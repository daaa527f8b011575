#pragma once
/// \file
/// O mapa de demonstração montado em código, enquanto o aplicativo não abre documentos.

namespace tavru {

class TGis;

/// Acrescenta às camadas do controle o mapa embutido, de baixo para cima: "Continente" (o
/// contorno grosseiro da América do Sul, fundo), "Satélite" (a figura do Blue Marble), "Grade" (meridianos e paralelos de 10 em 10
/// graus), "Países" (o contorno grosseiro do Brasil), "Rios", "Cidades" (capitais com os campos
/// "Nome", "UF" ou "País" e "Tipo") e "Textos" (os oceanos) e "Plotagem" (os objetos de plotagem). Põe a cor do mar no fundo do mapa e a
/// fonte dos rótulos; não redesenha (quem chama termina com `Zerado` e `FitToWindow`).
void MontarMapaEmbutido(TGis &gis);

} // namespace tavru
