#include <tavru/formats/TTratadorDeArquivosDGN.h>

#include <tavru/companions/geodesy/UTM.h>
#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISPosicaoList.h>
#include <tavru/core/TGISPosicaoListList.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/formats/PluginDGN.h>
#include <tavru/formats/TfrmConfigurarDGN.h>
#include <tavru/platform/Exception.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QtGlobal>
#include <cstring>
#include <memory>
#include <vector>

namespace tavru {

const TClasseTratador TTratadorDeArquivosDGN::Classe =
    TClasseTratador::De<TTratadorDeArquivosDGN>("TTratadorDeArquivosDGN");

namespace {

struct TPlugin
{
    QString Nome;
    std::unique_ptr<QLibrary> Biblioteca;
    TavruFinalizarDGN Finalizar = nullptr;
    TavruObterFiltroArquivosDGN ObterFiltro = nullptr;
    TavruImportarDGN Importar = nullptr;
};

/// O registro de plug-ins, criado na carga da biblioteca e desfeito na descarga.
class TRegistroDePlugins
{
public:
    TRegistroDePlugins()
    {
        // O registro de tratadores precisa existir antes deste, para ser destruído depois dele:
        // a destruição deste tira a classe de lá.
        (void)TGISObjetoList::ObterTipoPelaExtencao(QString(), true);
    }
    ~TRegistroDePlugins()
    {
        try {
            TTratadorDeArquivosDGN::LiberarPlugins();
        } catch (...) {
            qWarning("Falha ao liberar os plug-ins DGN na descarga da biblioteca");
        }
    }
    std::vector<TPlugin> Itens;
};

TRegistroDePlugins &RegistroDePlugins()
{
    static TRegistroDePlugins registro;
    return registro;
}

// Inicialização da unidade: o registro nasce com a biblioteca.
[[maybe_unused]] const bool RegistroCriado = (RegistroDePlugins(), true);

QString TextoDoFiltro(const TPlugin &plugin)
{
    const char *filtro = nullptr;
    plugin.ObterFiltro(&filtro);
    return filtro ? QString::fromUtf8(filtro) : QString();
}

/// A extensão da máscara de um filtro ("Desenhos (*.DGN)|*.DGN" dá ".dgn"), ou vazio.
QString ExtensaoDoFiltro(const QString &filtro)
{
    const qsizetype barra = filtro.indexOf(QLatin1Char('|'));
    const QString mascara = barra < 0 ? QString() : filtro.mid(barra + 1);
    const qsizetype ponto = mascara.lastIndexOf(QLatin1Char('.'));
    if (ponto < 0 || mascara.indexOf(QLatin1Char('/'), ponto) >= 0 || mascara.indexOf(QLatin1Char('\\'), ponto) >= 0)
        return QString();
    return mascara.mid(ponto).toLower();
}

QString ExtensaoDoArquivo(const QString &arquivo)
{
    const QString nome = QFileInfo(arquivo).fileName();
    const qsizetype ponto = nome.lastIndexOf(QLatin1Char('.'));
    return ponto < 0 ? QString() : nome.mid(ponto).toLower();
}

/// Carrega um arquivo de biblioteca da pasta; responde se ele virou um plug-in.
bool CarregarPlugin(const QFileInfo &arquivo)
{
    auto biblioteca = std::make_unique<QLibrary>(arquivo.absoluteFilePath());
    if (!biblioteca->load())
        return false;
    TPlugin plugin;
    plugin.Nome = arquivo.fileName();
    const auto inicializar = reinterpret_cast<TavruInicializarDGN>(biblioteca->resolve("iInicializar"));
    plugin.Finalizar = reinterpret_cast<TavruFinalizarDGN>(biblioteca->resolve("iFinalizar"));
    plugin.ObterFiltro = reinterpret_cast<TavruObterFiltroArquivosDGN>(biblioteca->resolve("iObterFiltroArquivos"));
    plugin.Importar = reinterpret_cast<TavruImportarDGN>(biblioteca->resolve("iImportar"));
    if (!inicializar || !plugin.Finalizar || !plugin.ObterFiltro || !plugin.Importar) {
        // Mantido assim: a biblioteca que não é um plug-in fica carregada e nunca é usada (o
        // objeto QLibrary vai embora sem `unload`).
        return false;
    }
    if (inicializar() == 0) {
        biblioteca->unload();
        return false;
    }
    plugin.Biblioteca = std::move(biblioteca);
    const TClasseTratador *existente = nullptr;
    QString erro;
    if (TGISObjetoList::ObterRefClassPeloTipo(plugin.Nome, existente)) {
        erro = QStringLiteral("outro tratador já usa o nome de tipo");
    } else {
        try {
            const QString filtro = TextoDoFiltro(plugin);
            TGISObjetoList::RegistrarTratadorDeArquivo(plugin.Nome, TTratadorDeArquivosDGN::Classe, filtro, filtro);
            RegistroDePlugins().Itens.push_back(std::move(plugin));
            return true;
        } catch (const std::exception &e) {
            erro = QString::fromUtf8(e.what());
        }
    }
    qWarning("Plug-in %s não registrado: %s", qPrintable(plugin.Nome), qPrintable(erro));
    plugin.Finalizar();
    plugin.Biblioteca->unload();
    return false;
}

template <typename T>
T LerRegistro(const void *dados)
{
    T registro;
    std::memcpy(&registro, dados, sizeof(T));
    return registro;
}

} // namespace

TTratadorDeArquivosDGN::TTratadorDeArquivosDGN(TGISObjetoList &lista) : TGISTratadorDeArquivo(lista) {}

// ---- plug-ins ----

QString TTratadorDeArquivosDGN::MascaraDeBibliotecas()
{
#if defined(Q_OS_WIN)
    return QStringLiteral("*.dll");
#elif defined(Q_OS_DARWIN)
    return QStringLiteral("*.dylib");
#else
    return QStringLiteral("*.so");
#endif
}

void TTratadorDeArquivosDGN::AtualizarPlugins(const QString &pasta)
{
    LiberarPlugins();
    CarregarPlugins(pasta);
}

int TTratadorDeArquivosDGN::CarregarPlugins(const QString &pasta)
{
    if (pasta.isEmpty())
        return 0;
    const QDir dir(pasta);
    const QFileInfoList arquivos =
        dir.entryInfoList(QStringList{MascaraDeBibliotecas()}, QDir::Files | QDir::Readable, QDir::Name);
    int carregados = 0;
    for (const QFileInfo &arquivo : arquivos) {
        bool repetido = false;
        for (const TPlugin &p : RegistroDePlugins().Itens)
            repetido = repetido || p.Nome == arquivo.fileName();
        if (repetido)
            continue;
        try {
            if (CarregarPlugin(arquivo))
                ++carregados;
        } catch (const std::exception &e) {
            qWarning("Plug-in %s ignorado: %s", qPrintable(arquivo.fileName()), e.what());
        }
    }
    return carregados;
}

void TTratadorDeArquivosDGN::LiberarPlugins()
{
    std::vector<TPlugin> itens = std::move(RegistroDePlugins().Itens);
    RegistroDePlugins().Itens.clear();
    for (TPlugin &p : itens) {
        p.Finalizar();
        p.Biblioteca->unload();
    }
    TGISObjetoList::RemoverRegistroTratadorDeArquivo(Classe);
}

QStringList TTratadorDeArquivosDGN::Plugins()
{
    QStringList nomes;
    for (const TPlugin &p : RegistroDePlugins().Itens)
        nomes << p.Nome;
    return nomes;
}

// ---- leitura ----

bool TTratadorDeArquivosDGN::Reconhece(QIODevice &)
{
    return true;
}

void TTratadorDeArquivosDGN::Gravar(const QString &) {}

void TTratadorDeArquivosDGN::Ler(const QString &nomeArquivo)
{
    const QString extensao = ExtensaoDoArquivo(nomeArquivo);
    const TPlugin *escolhido = nullptr;
    for (const TPlugin &p : RegistroDePlugins().Itens) {
        if (!extensao.isEmpty() && ExtensaoDoFiltro(TextoDoFiltro(p)) == extensao) {
            escolhido = &p;
            break;
        }
    }
    if (!escolhido)
        throw EInvalidOperation(
            QStringLiteral("Nenhum plug-in carregado lê arquivos \"%1\": %2")
                .arg(extensao.isEmpty() ? QStringLiteral("sem extensão") : extensao, nomeArquivo));

    const auto configurar =
        reinterpret_cast<TavruConfigurarNaDLLDGN>(escolhido->Biblioteca->resolve("iConfigurarNaDLL"));
    FConverter = configurar && configurar() == 0;
    if (FConverter && !TfrmConfigurarDGN::Executar(nomeArquivo, FZona, FElipsoide, FFator))
        return;

    FErro = nullptr;
    const QByteArray nome = QFile::encodeName(nomeArquivo);
    const std::int32_t resultado = escolhido->Importar(nome.constData(), &RetornoDoPlugin, this);
    if (resultado == 0)
        throw Exception(QStringLiteral("Arquivo em Formato Inválido!!"));
    if (FErro)
        std::rethrow_exception(FErro);
    Lista().CalcularLimites();
}

std::int32_t TTratadorDeArquivosDGN::RetornoDoPlugin(std::uint16_t tipo, const void *dados, void *contexto)
{
    auto *tratador = static_cast<TTratadorDeArquivosDGN *>(contexto);
    if (!tratador || tratador->FErro)
        return 1;
    try {
        tratador->CallBack(tipo, dados);
        // O plug-in não diz quanto falta: a fração fica em 0 até o fim, e o número de objetos anda.
        // Depois de um cancelamento, os registros que o plug-in ainda entregar são ignorados.
        tratador->AvisarProgresso(0.0, tratador->Lista().Count());
    } catch (...) {
        tratador->FErro = std::current_exception();
    }
    return 1;
}

void TTratadorDeArquivosDGN::CallBack(std::uint16_t tipo, const void *dados)
{
    if (tipo < TAVRU_DGN_PONTO || tipo > TAVRU_DGN_IMAGEM)
        return;
    if (!dados)
        throw EConvertError(QStringLiteral("Registro nulo entregue pelo plug-in (tipo %1)").arg(tipo));
    switch (tipo) {
    case TAVRU_DGN_PONTO: LerPonto(dados); break;
    case TAVRU_DGN_LINHA: LerLinha(dados); break;
    case TAVRU_DGN_AREA: LerArea(dados); break;
    case TAVRU_DGN_AREA_CIRCULAR: LerAreaCircular(dados); break;
    case TAVRU_DGN_IMAGEM: LerImagem(dados); break;
    }
}

TGISPosicao TTratadorDeArquivosDGN::ConvertePonto(double a, double b) const
{
    double latitude = a;
    double longitude = b;
    if (FConverter)
        ConverteGradeUTM_para_LatLong(FZona, a * FFator, b * FFator, FElipsoide, latitude, longitude);
    return GISPosicao(Arredondar(latitude * 3600.0), Arredondar(longitude * 3600.0));
}

namespace {

/// Os vértices de um registro numa parte nova da linha (que está na posição zero, sem giro: os
/// deslocamentos são as posições), e o primeiro de novo no fim quando `fechar`.
void LerVertices(const TTratadorDeArquivosDGN &tratador, TGISLinha &linha, std::int32_t total,
                 const TavruPontoDGN *vertices, bool fechar)
{
    if (total < 0)
        throw EConvertError(QStringLiteral("Número de vértices negativo entregue pelo plug-in: %1").arg(total));
    if (total > 0 && !vertices)
        throw EConvertError(QStringLiteral("Registro de %1 vértices sem os vértices").arg(total));
    const bool repetir = fechar && total > 0;
    auto parte = std::make_unique<TGISPosicaoList>();
    parte->Redimensionar(total + (repetir ? 1 : 0));
    TGISPosicao *destino = parte->Dados();
    for (std::int32_t i = 0; i < total; ++i) {
        TavruPontoDGN p;
        std::memcpy(&p, vertices + i, sizeof p);
        destino[i] = tratador.ConvertePonto(p.A, p.B);
    }
    if (repetir)
        destino[total] = destino[0];
    linha.Pontos().Add(parte.release());
    linha.CalcularLimites();
}

} // namespace

void TTratadorDeArquivosDGN::LerPonto(const void *dados)
{
    const auto r = LerRegistro<TavruRegistroPontoDGN>(dados);
    auto ponto = std::make_unique<TGISPonto>();
    ponto->AtribuirCor(r.Cor);
    ponto->AtribuirForma(gisCirculo);
    ponto->AtribuirPosicao(ConvertePonto(r.Posicao.A, r.Posicao.B));
    Lista().Add(ponto.release());
}

void TTratadorDeArquivosDGN::LerLinha(const void *dados)
{
    const auto r = LerRegistro<TavruRegistroLinhaDGN>(dados);
    auto linha = std::make_unique<TGISLinha>();
    linha->Caneta().Color = r.CorCaneta;
    linha->Caneta().Style = static_cast<TPenStyle>(r.EstiloCaneta);
    linha->Caneta().Width = r.LarguraCaneta;
    LerVertices(*this, *linha, r.Total, r.Vertices, false);
    Lista().Add(linha.release());
}

void TTratadorDeArquivosDGN::LerArea(const void *dados)
{
    const auto r = LerRegistro<TavruRegistroAreaDGN>(dados);
    auto area = std::make_unique<TGISArea>();
    area->Caneta().Color = r.CorCaneta;
    area->Caneta().Style = static_cast<TPenStyle>(r.EstiloCaneta);
    area->Caneta().Width = r.LarguraCaneta;
    area->Pincel().Color = r.CorPincel;
    area->Pincel().Style = static_cast<TBrushStyle>(r.EstiloPincel);
    LerVertices(*this, *area, r.Total, r.Vertices, true);
    Lista().Add(area.release());
}

void TTratadorDeArquivosDGN::LerAreaCircular(const void *dados)
{
    const auto r = LerRegistro<TavruRegistroAreaCircularDGN>(dados);
    auto area = std::make_unique<TGISAreaCircular>();
    area->AtribuirPosicao(ConvertePonto(r.Centro.A, r.Centro.B));
    area->AtribuirRaioMenor(r.RaioMenor);
    area->AtribuirRaioMaior(r.RaioMaior);
    area->AtribuirAzimuteInicial(r.AzimuteInicial);
    area->AtribuirAzimuteFinal(r.AzimuteFinal);
    Lista().Add(area.release());
}

void TTratadorDeArquivosDGN::LerImagem(const void *dados)
{
    const auto r = LerRegistro<TavruRegistroImagemDGN>(dados);
    auto imagem = std::make_unique<TGISImagem>();
    if (r.Canto1.A == 0.0 && r.Canto1.B == 0.0 && r.Canto2.A == 0.0 && r.Canto2.B == 0.0) {
        imagem->AtribuirArea(GISRet(0, 0, 0, 0));
    } else {
        const TGISPosicao p1 = ConvertePonto(r.Canto1.A, r.Canto1.B);
        const TGISPosicao p2 = ConvertePonto(r.Canto2.A, r.Canto2.B);
        imagem->AtribuirArea(GISRet(p1.Latitude, p1.Longitude, p2.Latitude, p2.Longitude));
    }
    if (r.Arquivo)
        imagem->LerArquivo(QFile::decodeName(r.Arquivo));
    Lista().Add(imagem.release());
}

} // namespace tavru
