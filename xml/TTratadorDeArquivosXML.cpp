#include <tavru/xml/TTratadorDeArquivosXML.h>

#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TObjectList.h>
#include <tavru/xml/CodificacaoXML_p.h>
#include <tavru/xml/ConfiguracaoXML.h>
#include <tavru/xml/NoXML_p.h>

#include <tavru/platform/ArquivoComum.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

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
using xmlp::OpcoesDoDOM;

// O erro do DOM com a linha e a coluna (sem contar os primeiros `descontar` bytes do texto).
[[noreturn]] void ErroDeDocumento(const QString &origem, const pugi::xml_parse_result &r,
                                  const xmlp::TTextoDoDocumento &texto, size_t descontar = 0)
{
    qsizetype linha = 0, coluna = 0;
    xmlp::LinhaEColuna(texto.Dados(), std::min(static_cast<size_t>(std::max<std::ptrdiff_t>(r.offset, 0)), texto.Tamanho()),
                       linha, coluna, descontar);
    throw EFilerError(QStringLiteral("%1 não é um documento XML bem formado: %2 (linha %3, coluna %4).")
                          .arg(origem, DescricaoDoErro(r.status))
                          .arg(linha)
                          .arg(coluna));
}

// Carrega o arquivo no documento. O arquivo (só um arquivo comum, ou um recurso do Qt,
// ":/mapa/paises.xml") é lido pelo QFile para um bloco do alocador do pugixml, conferido e posto em
// UTF-8 (`ConferirDocumento`), e o DOM o analisa no lugar: a memória é a do load_file (o arquivo
// uma vez, mais a cópia convertida para UTF-8 quando o documento é ISO-8859-1, só durante a
// conversão). `texto` guarda o bloco e vive mais que `documento`.
void Carregar(pugi::xml_document &documento, xmlp::TTextoDoDocumento &texto, const QString &nomeArquivo)
{
    const QString origem = QStringLiteral("O arquivo \"%1\"").arg(nomeArquivo);
    const std::unique_ptr<QFile> arquivo = AbrirArquivoComum(nomeArquivo);
    if (!arquivo)
        throw EFilerError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    const qint64 tamanho = arquivo->size();
    char *bloco = texto.Alocar(static_cast<size_t>(std::max<qint64>(tamanho, 0)));
    if (arquivo->read(bloco, tamanho) != tamanho)
        throw EFilerError(QStringLiteral("Não foi possível ler o arquivo \"%1\": %2.").arg(nomeArquivo, arquivo->errorString()));
    xmlp::ConferirDocumento(texto, origem);
    const pugi::xml_parse_result r =
        documento.load_buffer_inplace(texto.Dados(), texto.Tamanho(), OpcoesDoDOM, pugi::encoding_utf8);
    if (!r)
        ErroDeDocumento(origem, r, texto);
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
    if (nomeArquivo.isEmpty() || !QFileInfo::exists(nomeArquivo))
        throw EFilerError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    xmlp::TTextoDoDocumento texto;
    pugi::xml_document documento;
    Carregar(documento, texto, nomeArquivo);
    const pugi::xml_node raiz = documento.document_element();
    // Durante a leitura, figuras com nome relativo se acham ao lado do documento.
    TLeituraXML leitura;
    leitura.Pasta = QFileInfo(nomeArquivo).absolutePath();
    leitura.Tratador = this;
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
    const QString motivo = GravarArquivoComum(nomeArquivo, bytes);
    if (!motivo.isEmpty())
        throw EInOutError(QStringLiteral("Não foi possível gravar o arquivo \"%1\": %2. O arquivo anterior, se havia, "
                                         "ficou como estava.")
                              .arg(nomeArquivo, motivo));
}

std::unique_ptr<TGISObjeto> TTratadorDeArquivosXML::ObterObjeto(const QString &texto)
{
    // Linhas e colunas das mensagens contam do começo de `texto`, não do invólucro.
    const QByteArray abertura = (QLatin1Char('<') + TAG_RAIZ + QLatin1Char('>')).toUtf8();
    const QByteArray documentoTexto = abertura + (texto + QLatin1String("</") + TAG_RAIZ + QLatin1Char('>')).toUtf8();
    xmlp::TTextoDoDocumento conferido;
    std::memcpy(conferido.Alocar(static_cast<size_t>(documentoTexto.size())), documentoTexto.constData(),
                static_cast<size_t>(documentoTexto.size()));
    const auto descontar = static_cast<size_t>(abertura.size());
    xmlp::ConferirDocumento(conferido, QStringLiteral("O texto"), descontar);
    pugi::xml_document documento;
    const pugi::xml_parse_result r =
        documento.load_buffer_inplace(conferido.Dados(), conferido.Tamanho(), OpcoesDoDOM, pugi::encoding_utf8);
    if (!r)
        ErroDeDocumento(QStringLiteral("O texto"), r, conferido, descontar);
    const pugi::xml_node raiz = documento.document_element();
    if (!raiz)
        return nullptr;
    const pugi::xml_node primeiro = raiz.first_child();
    if (!primeiro)
        ErroIndiceLista(0);
    return ObterXMLObjeto(TAcessoNoXML::Criar(primeiro, nullptr));
}

} // namespace tavru
