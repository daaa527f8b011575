#include <tavru/xml/TTratadorDeArquivosXML.h>

#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TObjectList.h>
#include <tavru/xml/CodificacaoXML_p.h>
#include <tavru/xml/ConfiguracaoXML.h>
#include <tavru/xml/NoXML_p.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace tavru {

const TClasseTratador TTratadorDeArquivosXML::Classe =
    TClasseTratador::De<TTratadorDeArquivosXML>("TTratadorDeArquivosXML");

namespace xmlp {

QString DescricaoDoErro(pugi::xml_parse_status status)
{
    switch (status) {
    case pugi::status_ok: return QString();
    case pugi::status_file_not_found: return QStringLiteral("arquivo não encontrado");
    case pugi::status_io_error: return QStringLiteral("erro de leitura do arquivo");
    case pugi::status_out_of_memory: return QStringLiteral("memória insuficiente");
    case pugi::status_internal_error: return QStringLiteral("erro interno do leitor de XML");
    case pugi::status_unrecognized_tag: return QStringLiteral("marca não reconhecida");
    case pugi::status_bad_pi: return QStringLiteral("instrução de processamento inválida");
    case pugi::status_bad_comment: return QStringLiteral("comentário inválido");
    case pugi::status_bad_cdata: return QStringLiteral("seção CDATA inválida");
    case pugi::status_bad_doctype: return QStringLiteral("declaração de tipo de documento inválida");
    case pugi::status_bad_pcdata: return QStringLiteral("texto inválido");
    case pugi::status_bad_start_element: return QStringLiteral("marca de abertura inválida");
    case pugi::status_bad_attribute: return QStringLiteral("atributo inválido (um valor com \", < ou & sem escape?)");
    case pugi::status_bad_end_element: return QStringLiteral("marca de fechamento inválida");
    case pugi::status_end_element_mismatch: return QStringLiteral("marca de fechamento que não corresponde à de abertura");
    case pugi::status_append_invalid_root: return QStringLiteral("raiz inválida");
    case pugi::status_no_document_element: return QStringLiteral("documento sem elemento raiz");
    }
    return QStringLiteral("erro desconhecido");
}

void ErroDeDocumento(const QString &origem, const pugi::xml_parse_result &r)
{
    throw EFilerError(QStringLiteral("%1 não é um documento XML bem formado: %2 (posição %3).")
                          .arg(origem, DescricaoDoErro(r.status))
                          .arg(static_cast<qlonglong>(r.offset)));
}

} // namespace xmlp

namespace {

using xmlp::DescricaoDoErro;
using xmlp::ErroDeDocumento;
using xmlp::OpcoesDoDOM;

[[noreturn]] void ErroDeLeitura(const QString &nomeArquivo, const QString &motivo)
{
    throw EFilerError(QStringLiteral("Não foi possível ler o arquivo \"%1\": %2.").arg(nomeArquivo, motivo));
}

// Carrega o arquivo no documento. O arquivo é lido pelo QFile (vale também um recurso do Qt,
// ":/mapa/paises.xml") para um bloco do alocador do pugixml, que o analisa no lugar e o libera:
// a memória é a mesma do load_file (o arquivo uma vez, mais a cópia convertida para UTF-8 quando o
// documento é ISO-8859-1, só durante a conversão). Um arquivo que não se lê levanta `EFilerError`
// com o motivo; o resultado é o da análise.
pugi::xml_parse_result Carregar(pugi::xml_document &documento, const QString &nomeArquivo)
{
    QFile arquivo(nomeArquivo);
    if (!arquivo.open(QIODevice::ReadOnly))
        ErroDeLeitura(nomeArquivo, arquivo.errorString());
    const qint64 tamanho = arquivo.size();
    void *bloco = pugi::get_memory_allocation_function()(static_cast<size_t>(std::max<qint64>(tamanho, 1)));
    if (!bloco)
        ErroDeLeitura(nomeArquivo, DescricaoDoErro(pugi::status_out_of_memory));
    if (arquivo.read(static_cast<char *>(bloco), tamanho) != tamanho) {
        pugi::get_memory_deallocation_function()(bloco);
        ErroDeLeitura(nomeArquivo, arquivo.errorString());
    }
    return documento.load_buffer_inplace_own(bloco, static_cast<size_t>(tamanho), OpcoesDoDOM, pugi::encoding_auto);
}

} // namespace

TTratadorDeArquivosXML::TTratadorDeArquivosXML(TGISObjetoList &lista) : TGISTratadorDeArquivo(lista)
{
    const QStringList filtro{QStringLiteral("Arquivos XML (*.xml)|*.xml")};
    AtribuirFiltroLeitura(filtro);
    AtribuirFiltroGravacao(filtro);
}

bool TTratadorDeArquivosXML::Reconhece(QIODevice &)
{
    return true;
}

void TTratadorDeArquivosXML::Ler(const QString &nomeArquivo)
{
    if (!QFileInfo(nomeArquivo).isFile())
        throw EFilerError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    pugi::xml_document documento;
    const pugi::xml_parse_result r = Carregar(documento, nomeArquivo);
    if (!r)
        ErroDeDocumento(QStringLiteral("O arquivo \"%1\"").arg(nomeArquivo), r);
    const pugi::xml_node raiz = documento.document_element();
    // Durante a leitura, figuras com nome relativo se acham ao lado do documento.
    TLeituraXML leitura;
    leitura.Pasta = QFileInfo(nomeArquivo).absolutePath();
    if (raiz && QString::fromUtf8(raiz.name()).compare(TAG_RAIZ, Qt::CaseInsensitive) == 0)
        AtribuirXMLLista(Lista(), TAcessoNoXML::Criar(raiz, &leitura));
    Lista().CalcularLimites();
}

void TTratadorDeArquivosXML::Gravar(const QString &nomeArquivo)
{
    QByteArray bytes;
    {
        QStringList linhas;
        linhas.append(CABECALHO);
        linhas.append(QLatin1Char('<') + TAG_RAIZ + QLatin1Char('>'));
        GravarLista(linhas, Lista());
        linhas.append(QLatin1String("</") + TAG_RAIZ + QLatin1Char('>'));
        bytes = xmlp::CodificarDocumento(linhas, CABECALHO);
    }
    // Sem o buffer do QFileDevice: com ele, uma escrita curta (disco cheio, limite de tamanho) no
    // esvaziamento do buffer passa despercebida e o commit troca o documento por um pedaço dele.
    QSaveFile arquivo(nomeArquivo);
    if (!arquivo.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || arquivo.write(bytes) != bytes.size()
        || !arquivo.commit())
        throw EInOutError(QStringLiteral("Não foi possível gravar o arquivo \"%1\": %2. O arquivo anterior, se havia, "
                                         "ficou como estava.")
                              .arg(nomeArquivo, arquivo.errorString()));
}

std::unique_ptr<TGISObjeto> TTratadorDeArquivosXML::ObterObjeto(const QString &texto)
{
    const QByteArray documentoTexto =
        (QLatin1Char('<') + TAG_RAIZ + QLatin1Char('>') + texto + QLatin1String("</") + TAG_RAIZ + QLatin1Char('>'))
            .toUtf8();
    pugi::xml_document documento;
    const pugi::xml_parse_result r = documento.load_buffer(documentoTexto.constData(),
                                                           static_cast<size_t>(documentoTexto.size()), OpcoesDoDOM,
                                                           pugi::encoding_utf8);
    if (!r)
        ErroDeDocumento(QStringLiteral("O texto"), r);
    const pugi::xml_node raiz = documento.document_element();
    if (!raiz)
        return nullptr;
    const pugi::xml_node primeiro = raiz.first_child();
    if (!primeiro)
        ErroIndiceLista(0);
    return ObterXMLObjeto(TAcessoNoXML::Criar(primeiro, nullptr));
}

} // namespace tavru
