#pragma once
/// \file
/// O mapa de exemplo em documentos XML (dados públicos da Natural Earth), embutido nos recursos do
/// aplicativo em ":/mapa".

namespace tavru {

class TGis;

/// Lê ":/mapa/camadas.txt" (UTF-8; linhas "arquivo;nome;tipo" na ordem de desenho, "#" comenta)
/// e acrescenta uma camada por linha, com o tipo dado (`gtcPanoDeFundo`, `gtcInterrogavel` ou
/// `gtcEditavel`) e os objetos lidos do documento pelo tratador "XML". As cidades e as camadas
/// editáveis mostram os rótulos dos seus objetos; as outras se consultam com um clique. Uma linha
/// malformada é pulada; um documento que não se lê levanta a exceção do tratador.
void CarregarMapaDeExemplo(TGis &gis);

} // namespace tavru
