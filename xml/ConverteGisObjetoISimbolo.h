#pragma once
/// \file
/// A unidade `ConverteGisObjetoISimbolo`: objetos do mapa viram símbolos da tabela de símbolos, e
/// símbolos viram objetos que preenchem um retângulo do mundo. Sem estado.
///
/// Coordenadas dos símbolos vetoriais: inteiras, com y para baixo; uma posição do mundo
/// (lat, lon), em segundos de arco, vira o ponto (lon, -lat) do símbolo.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exportacao.h>

#include <memory>

namespace tavru {

class ISimbolo;
class TGISObjeto;
class TGISObjetoList;

/// Um símbolo novo, do chamador, feito do objeto:
/// 1. uma `TGISImagem` dá um `TSimboloGrafico` que lê o arquivo da imagem (`LerArquivo`; um
///    arquivo que falta ou não se lê levanta `EInOutError`, e nada é criado);
/// 2. um `TGISPonto` de forma `gisFonte` dá um `TSimboloFonte` com a fonte e a `Letra` do ponto;
/// 3. todo outro objeto dá um `TSimboloVetorial` com, no máximo, a conversão do objeto:
///    - um `TGISPonto` de forma `gisCruz`..`gisTriangulo`: um `TPonto` da cor do ponto
///      (`ObterCor`) na posição; um de forma `gisSimbolo` não acrescenta nada;
///    - um `TGISTexto`: um `TTexto` com a fonte, o texto, os alinhamentos e o `GiroAdicional`
///      levado a 16 bits (truncado, como um inteiro de 16 bits guarda);
///    - uma `TGISAreaCircular`: um `TSetor` (um `TElipse` para uma `TGISElipse`) com ângulo
///      inicial DegToRad(MarinhaToGrau(GrauToMarinha(O) + AzimuteInicial)), O a orientação em
///      graus, e o final igual com `AzimuteFinal`; raio externo `RaioMaior`, interno `RaioMenor`;
///      estilo da caneta de `Caneta`, estilo e cor do pincel de `Pincel`. Mantido de propósito:
///      a cor da caneta não vai (fica a preta do elemento novo), e na elipse os raios são depois
///      trocados por `RaioMaiorY` e `RaioMenorY`, de modo que o símbolo guarda só os segundos
///      semi-eixos. Os azimutes (radianos) se somam ao rumo (graus) como números, também de
///      propósito; a volta ao mapa desfaz a conta quando a orientação era o norte;
///    - uma `TGISLinha` ou derivada com partes: um `TPoligono` por parte, em ordem, com as
///      posições absolutas (`ObterPonto`), cor e estilo da caneta; numa `TGISArea` também cor e
///      estilo do pincel e preenchido; corredores e derrotas viram polígonos abertos;
///    - outro objeto (`TGISComposto`, `TGISTrajeto`): nada, e o símbolo vetorial fica vazio.
TAVRU_GIS_EXPORT std::unique_ptr<ISimbolo> GisObjetoToSimbolo(const TGISObjeto &objeto);

/// Um objeto novo, do chamador, feito do símbolo, ou nulo:
/// 1. um `TSimboloFonte` dá um `TGISPonto` de forma `gisFonte` com a fonte e a letra do símbolo;
///    `retangulo` não é usado e o ponto fica em (0, 0);
/// 2. um `TSimboloGrafico` dá uma `TGISImagem` que lê o arquivo do símbolo (`LerArquivo`: o
///    ".geo" dele, se houver, dá a área; erros de leitura seguem para quem chama); `retangulo`
///    não é usado;
/// 3. um `TSimboloVetorial` passa pela conversão vetorial (ver `SimboloToGisObjetoList`) numa
///    lista temporária: nenhum objeto dá nulo, um só dá ele mesmo, mais de um dá um
///    `TGISComposto` com todos, na ordem;
/// 4. outro símbolo, ou nulo, dá nulo.
TAVRU_GIS_EXPORT std::unique_ptr<TGISObjeto> SimboloToGisObjeto(const ISimbolo *simbolo, const TGISRet &retangulo);

/// Põe em `lista` os objetos feitos do símbolo.
///
/// Um símbolo de fonte acrescenta o ponto e um gráfico a imagem de `SimboloToGisObjeto`; outro
/// símbolo, ou nulo, não acrescenta nada. Um símbolo vetorial passa pela conversão vetorial, que
/// primeiro esvazia `lista` (liberando os objetos dela), mesmo que o símbolo não tenha
/// elementos: a assimetria é de propósito.
///
/// Conversão vetorial, com `retangulo` R = (lat1, lon1, lat2, lon2) e a área A do símbolo
/// (`ObterArea`, unidades do símbolo):
/// - escala k = o menor entre a = (lon2 - lon1) / (A.Bottom - A.Top) e
///   b = (lat2 - lat1) / (A.Right - A.Left); um divisor zero faz a razão ser a própria diferença
///   do numerador. De propósito, a faixa de longitudes se mede contra a altura do símbolo e a de
///   latitudes contra a largura;
/// - o ponto (x, y) vira latitude Round(-(y - c.y) × k + C.Latitude) e longitude
///   Round((x - c.x) × k + C.Longitude) (arredondamento com empates para o par), com C o centro
///   de R e c o centro de A (metades inteiras truncadas);
/// - `TPonto`: `TGISPonto` `gisCruz` da cor do ponto; `TTexto`: `TGISTexto` com fonte, texto,
///   alinhamentos e giro; `TSetor`: `TGISAreaCircular` (`TGISElipse` para um `TElipse`)
///   orientada para o norte, com os raios multiplicados por f = Distancia(lat1, lat2 na
///   longitude do meio) / 2 / raio externo (o raio externo alcança metade da extensão norte-sul
///   de R), azimutes GrauToMarinha(RadToDeg(ângulo)), pincel e caneta (estilo e cor) do elemento;
///   na elipse, `RaioMaiorY` e `RaioMenorY` recebem os raios sem escala. Um raio externo zero
///   levanta `EZeroDivide` (os objetos já feitos ficam na lista);
/// - `TPoligono`: `TGISArea` com o pincel do elemento quando preenchido, senão `TGISLinha`; caneta
///   (estilo e cor) do elemento; uma parte nova com todas as posições; os limites do objeto são
///   calculados (`CalcularLimites`), para que ele tenha extensão;
/// - elementos nulos são pulados.
TAVRU_GIS_EXPORT void SimboloToGisObjetoList(const ISimbolo *simbolo, TGISObjetoList &lista, const TGISRet &retangulo);

} // namespace tavru
