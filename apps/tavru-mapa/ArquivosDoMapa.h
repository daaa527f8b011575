#pragma once
/// \file
/// Abrir documentos em camadas novas e gravar uma camada, pelo registro de tratadores de arquivo.

#include <QString>

namespace tavru {

class TGis;
class TGISCamada;

/// O tipo de tratador de um arquivo: o do filtro escolhido no diálogo (o par "descrição|padrões"),
/// ou, quando o filtro não é de um tratador só ("Arquivos Compatíveis", "Todos os Arquivos"), o
/// achado pela extensão. Vazio quando nenhum tratador serve.
QString TipoDoArquivo(const QString &arquivo, const QString &filtroEscolhido, bool leitura);

/// Lê o arquivo numa camada nova, chamada pelo nome do arquivo sem a extensão, e a põe por cima
/// das outras (com `Zerado`, que redesenha). `tipo` vazio procura o tratador pela extensão.
/// Qualquer erro (o arquivo, o tratador, nenhum tratador) levanta `Exception` com a mensagem a
/// mostrar, e o mapa fica como estava. Devolve a camada nova (possuída pelo mapa).
TGISCamada &AbrirEmCamadaNova(TGis &gis, const QString &arquivo, const QString &tipo = QString());

/// Grava os objetos da camada no arquivo pelo tratador `tipo` (vazio: pela extensão). Erros
/// levantam `Exception`; uma gravação que falha não destrói o arquivo que existia.
void GravarCamada(TGISCamada &camada, const QString &arquivo, const QString &tipo = QString());

} // namespace tavru
