#pragma once
/// \file
/// Abrir documentos em camadas novas e gravar uma camada, pelo registro de tratadores de arquivo.

#include <QString>
#include <functional>

namespace tavru {

class TGis;
class TGISCamada;
class TGISObjetoList;

/// O tipo de tratador de um arquivo: o do filtro escolhido no diálogo (o par "descrição|padrões"),
/// ou, quando o filtro não é de um tratador só ("Arquivos Compatíveis", "Todos os Arquivos"), o
/// achado pela extensão. Vazio quando nenhum tratador serve.
QString TipoDoArquivo(const QString &arquivo, const QString &filtroEscolhido, bool leitura);

/// Os ajustes do documento XML que o aplicativo usa, para que tudo o que ele grava se leia de
/// volta igual: `ESCAPAR_TEXTOS` ligado (um "&", "<" ou aspas num texto não estraga o documento) e
/// o cabeçalho UTF-8 (qualquer caractere se grava). A biblioteca fica com os seus padrões; só o
/// aplicativo muda os dele, uma vez, ao começar.
void AjustarDocumentosDoAplicativo();

/// Lê o arquivo numa camada nova, chamada pelo nome do arquivo sem a extensão (com " (2)", " (3)"...
/// quando o nome já é de outra camada, sem distinguir maiúsculas), e a põe por cima das outras
/// (com `Zerado`, que redesenha). `tipo` vazio procura o tratador pela extensão. Qualquer erro (o
/// arquivo, o tratador, nenhum tratador, nenhum objeto reconhecido no documento) levanta
/// `Exception` com a mensagem a mostrar, e o mapa fica como estava. Devolve a camada nova
/// (possuída pelo mapa).
/// `ler`, quando dado, faz a leitura no lugar de `TGISObjetoList::Ler` (a janela lê com a caixa de
/// progresso, `LerComProgresso`).
using TLerCamada = std::function<void(TGISObjetoList &lista, const QString &arquivo, const QString &tipo)>;
TGISCamada &AbrirEmCamadaNova(TGis &gis, const QString &arquivo, const QString &tipo = QString(),
                              const TLerCamada &ler = TLerCamada());

/// O arquivo que o diálogo de salvar propõe para a camada: o dela, quando ela veio de um arquivo
/// de verdade; senão (uma camada nova, ou lida dos recursos embutidos ":/..."), o nome da camada
/// com ".xml" na pasta do usuário.
QString ArquivoParaSalvar(const TGISCamada &camada);

/// Grava os objetos da camada no arquivo pelo tratador `tipo` (vazio: pela extensão). Erros
/// levantam `Exception`; uma gravação que falha não destrói o arquivo que existia.
void GravarCamada(TGISCamada &camada, const QString &arquivo, const QString &tipo = QString());

} // namespace tavru
