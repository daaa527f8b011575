#include <tavru/core/TGISObjetoList.h>

#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/platform/Exception.h>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QtGlobal>
#include <algorithm>
#include <memory>

namespace tavru {

namespace {
std::vector<TRegistro> &Registro()
{
    static std::vector<TRegistro> registro;
    return registro;
}

QStringList &Falhas()
{
    static QStringList falhas;
    return falhas;
}

/// Os padrões de um filtro "Descrição (*.a;*.b)|*.a;*.b": os que vêm depois da primeira barra
/// (o filtro inteiro, quando não tem barra).
QStringList Padroes(const QString &filtro)
{
    const qsizetype barra = filtro.indexOf(QLatin1Char('|'));
    QString lista = barra < 0 ? filtro : filtro.mid(barra + 1);
    const qsizetype outra = lista.indexOf(QLatin1Char('|'));
    if (outra >= 0)
        lista.truncate(outra);
    QStringList padroes;
    for (const QString &p : lista.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        padroes += p.trimmed();
    return padroes;
}

bool Casa(const QString &padrao, const QString &nome)
{
    // O padrão casa com o nome inteiro ("*.shp" não casa com "rio.shp.bak").
    const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(padrao),
                                QRegularExpression::CaseInsensitiveOption);
    return re.match(nome).hasMatch();
}

const TRegistro *EntradaDoTipo(const QString &tipo)
{
    for (const TRegistro &r : Registro())
        if (r.Tipo == tipo)
            return &r;
    return nullptr;
}

const QString &Filtro(const TRegistro &r, bool leitura)
{
    return leitura ? r.FiltroLeitura : r.FiltroEscrita;
}

QString FiltroCompleto(bool leitura)
{
    QString lista;
    QString padroes;
    const std::vector<TRegistro> &registro = Registro();
    for (size_t i = 0; i < registro.size(); ++i) {
        const QString &f = Filtro(registro[i], leitura);
        if (f.isEmpty())
            continue;
        if (i > 0)
            padroes += QLatin1Char(';');
        const qsizetype barra = f.indexOf(QLatin1Char('|'));
        padroes += barra < 0 ? f : f.mid(barra + 1);
        lista += f + QLatin1Char('|');
    }
    return QStringLiteral("Arquivos Compatíveis (") + padroes + QStringLiteral(")|") + padroes
        + QLatin1Char('|') + lista + QStringLiteral("Todos os Arquivos (*.*)|*.*");
}
} // namespace

TGISObjetoList::~TGISObjetoList()
{
    FObjetoDono = nullptr;
    ++FLote; // ninguém é avisado da destruição
    TObjectList<TGISObjeto>::Clear();
}

void TGISObjetoList::Clear()
{
    IniciarLote();
    TObjectList<TGISObjeto>::Clear();
    TerminarLote();
}

void TGISObjetoList::IniciarLote()
{
    ++FLote;
}

void TGISObjetoList::TerminarLote()
{
    if (FLote > 0 && --FLote == 0 && FLotePendente) {
        FLotePendente = false;
        Avisar(gmLote, nullptr);
    }
}

void TGISObjetoList::AvisarAlteracao(TGISObjeto *objeto)
{
    Avisar(gmAlterado, objeto);
}

void TGISObjetoList::Notificar(TGISObjeto *objeto, TAcaoDeLista acao)
{
    ++FEstrutura;
    TGISMudanca mudanca = gmIncluido;
    switch (acao) {
    case laIncluido: mudanca = gmIncluido; break;
    case laExtraido: mudanca = gmExtraido; break;
    case laLiberando: mudanca = gmLiberado; break;
    case laMovido: mudanca = gmMovido; break;
    }
    if (objeto) {
        if (acao == laIncluido)
            objeto->FLista = this;
        else if ((acao == laExtraido || acao == laLiberando) && objeto->FLista == this)
            objeto->FLista = nullptr;
    }
    Avisar(mudanca, objeto);
}

void TGISObjetoList::Avisar(TGISMudanca mudanca, TGISObjeto *objeto)
{
    if (FLote > 0) {
        FLotePendente = true;
        return;
    }
    FContador.fetch_add(1, std::memory_order_relaxed);
    if (!FObservadores.Vazio())
        FObservadores.Avisar(TGISAviso{mudanca, objeto, nullptr, this});
    if (FObjetoDono)
        FObjetoDono->Mudou();
}

void TGISObjetoList::CalcularLimites()
{
    // Posições vazias (nulas) são puladas; sem elas, é a conta de sempre: o item 0 duas vezes.
    bool primeiro = true;
    for (const TGISObjeto *o : *this) {
        if (!o)
            continue;
        if (primeiro)
            FLimites = o->Area();
        primeiro = false;
        FLimites = Uniao(o->Area(), FLimites);
    }
}

TGISObjeto *TGISObjetoList::ObterObjeto(const QString &campo, const QString &valor) const
{
    for (TGISObjeto *o : *this) {
        if (!o)
            continue;
        const int i = o->Informacoes().ObterIndiceCampo(campo);
        if (i >= 0 && o->Informacoes().ObterValorCampo(i) == valor)
            return o;
    }
    return nullptr;
}

bool TGISObjetoList::Ler(const QString &nomeArquivo, const QString &tipo)
{
    return Ler(nomeArquivo, tipo, QVariantMap());
}

bool TGISObjetoList::Ler(const QString &nomeArquivo, const QString &tipo, const QVariantMap &opcoes)
{
    const TClasseTratador *classe = nullptr;
    if (!ObterRefClassPeloTipo(tipo, classe))
        return false;
    const auto tratador = classe->Criar(*this);
    tratador->AtribuirOpcoes(opcoes);
    IniciarLote();
    try {
        tratador->Ler(nomeArquivo);
    } catch (...) {
        TerminarLote(); // o que já foi lido fica, e quem observa fica sabendo
        throw;
    }
    TerminarLote();
    FNomeArquivo = nomeArquivo;
    FTipoArquivo = tipo;
    FOpcoesDeLeitura = opcoes;
    FEstruturaDaOrigem = FEstrutura;
    return true;
}

bool TGISObjetoList::Ler(const QString &nomeArquivo, const QString &tipo, const QVariantMap &opcoes,
                         const TProgressoDeLeitura &progresso, int intervaloMs)
{
    const TClasseTratador *classe = nullptr;
    if (!ObterRefClassPeloTipo(tipo, classe))
        return false;
    TGISObjetoList rascunho; // um erro no meio libera o que ela tem, e esta lista nem fica sabendo
    const auto tratador = classe->Criar(rascunho);
    tratador->AtribuirOpcoes(opcoes);
    tratador->AtribuirProgresso(progresso, intervaloMs);
    tratador->Ler(nomeArquivo);
    tratador->AvisarProgresso(1.0, rascunho.Count());
    rascunho.FNomeArquivo = nomeArquivo;
    rascunho.FTipoArquivo = tipo;
    rascunho.FOpcoesDeLeitura = opcoes;
    Transferir(rascunho);
    return true;
}

void TGISObjetoList::Transferir(TGISObjetoList &rascunho)
{
    // Nada aqui falha: os objetos mudam de dono (sem posse, o rascunho só os esquece, e o dono
    // novo já está marcado em cada um).
    IniciarLote();
    for (int i = 0; i < rascunho.Count(); ++i)
        Add(rascunho.Items(i));
    TerminarLote();
    const bool calculouLimites = !(rascunho.Limites() == MundoInteiro);
    const bool possui = rascunho.OwnsObjects();
    rascunho.SetOwnsObjects(false);
    rascunho.Clear();
    rascunho.SetOwnsObjects(possui);
    if (calculouLimites) // o tratador calculou os limites: valem para a lista toda
        CalcularLimites();
    FNomeArquivo = rascunho.FNomeArquivo;
    FTipoArquivo = rascunho.FTipoArquivo;
    FOpcoesDeLeitura = rascunho.FOpcoesDeLeitura;
    FEstruturaDaOrigem = FEstrutura;
}

bool TGISObjetoList::Gravar(const QString &nomeArquivo, const QString &tipo)
{
    const TClasseTratador *classe = nullptr;
    if (!ObterRefClassPeloTipo(tipo, classe))
        return false;
    classe->Criar(*this)->Gravar(nomeArquivo);
    FNomeArquivo = nomeArquivo;
    FTipoArquivo = tipo;
    FOpcoesDeLeitura.clear();
    FEstruturaDaOrigem = FEstrutura;
    return true;
}

void TGISObjetoList::RegistrarTratadorDeArquivo(const QString &tipo, const TClasseTratador &classe,
                                                const QString &filtroLeitura, const QString &filtroEscrita)
{
    if (EntradaDoTipo(tipo))
        throw EInvalidOperation(QStringLiteral("O tratador para o tipo <") + tipo
                                + QStringLiteral("> ja foi registrado!!"));
    Registro().push_back(TRegistro{tipo, &classe, filtroLeitura, filtroEscrita});
}

void TGISObjetoList::RemoverRegistroTratadorDeArquivo(const TClasseTratador &classe)
{
    std::vector<TRegistro> &registro = Registro();
    for (size_t i = registro.size(); i-- > 0;)
        if (registro[i].Classe == &classe)
            registro.erase(registro.begin() + static_cast<std::ptrdiff_t>(i));
}

bool TGISObjetoList::ObterRefClassPeloTipo(const QString &tipo, const TClasseTratador *&classe)
{
    const TRegistro *r = EntradaDoTipo(tipo);
    classe = r ? r->Classe : nullptr;
    return r != nullptr;
}

QString TGISObjetoList::ObterFiltroCompletoDeLeitura()
{
    return FiltroCompleto(true);
}

QString TGISObjetoList::ObterFiltroCompletoDeEscrita()
{
    return FiltroCompleto(false);
}

QString TGISObjetoList::ObterTipoPeloFiltro(const QString &filtro, bool leitura)
{
    for (const TRegistro &r : Registro())
        if (Filtro(r, leitura) == filtro)
            return r.Tipo;
    return QString();
}

QString TGISObjetoList::ObterTipoPelaExtencao(const QString &extensao, bool leitura)
{
    QString ext = extensao.toLower();
    if (!ext.contains(QLatin1Char('.')))
        ext.prepend(QLatin1Char('.'));
    for (const TRegistro &r : Registro())
        if (Filtro(r, leitura).toLower().contains(ext))
            return r.Tipo;
    return QString();
}

QString TGISObjetoList::ObterTipoPeloArquivo(const QString &nomeArquivo, bool leitura)
{
    const QString nome = QFileInfo(nomeArquivo).fileName();
    std::vector<const TRegistro *> candidatos;
    for (const TRegistro &r : Registro()) {
        const QStringList padroes = Padroes(Filtro(r, leitura));
        if (std::any_of(padroes.begin(), padroes.end(), [&nome](const QString &p) { return Casa(p, nome); }))
            candidatos.push_back(&r);
    }
    if (candidatos.empty())
        return QString();
    if (candidatos.size() > 1) {
        // Só um arquivo comum é aberto (abrir um FIFO esperaria por quem escreve nele); o fluxo
        // leva o nome, que tratadores de bibliotecas de fora (GDAL) usam para olhar o arquivo.
        QFile arquivo(nomeArquivo);
        if (QFileInfo(nomeArquivo).isFile() && arquivo.open(QIODevice::ReadOnly)) {
            TGISObjetoList rascunho; // o tratador pede uma lista; esta nunca recebe nada
            for (const TRegistro *r : candidatos) {
                if (!arquivo.seek(0))
                    break;
                bool reconhece = false;
                try {
                    reconhece = r->Classe->Criar(rascunho)->Reconhece(arquivo);
                } catch (const std::exception &) {
                    // Um tratador que falha ao olhar o arquivo não o reconhece.
                }
                if (reconhece)
                    return r->Tipo;
            }
        }
    }
    return candidatos.front()->Tipo;
}

QStringList TGISObjetoList::FalhasDeRegistro()
{
    return Falhas();
}

void TGISObjetoList::AnotarFalhaDeRegistro(const QString &mensagem)
{
    Falhas() += mensagem;
}

void TGISObjetoList::LimparRegistro()
{
    Registro().clear();
}

std::vector<TRegistro> TGISObjetoList::ObterRegistro()
{
    return Registro();
}

void TGISObjetoList::RestaurarRegistro(const std::vector<TRegistro> &entradas)
{
    Registro() = entradas;
}

} // namespace tavru
