#include <tavru/core/TGISObjetoList.h>

#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/platform/Exception.h>

#include <algorithm>

namespace tavru {

namespace {
std::vector<TRegistro> &Registro()
{
    static std::vector<TRegistro> registro;
    return registro;
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
    const TClasseTratador *classe = nullptr;
    if (!ObterRefClassPeloTipo(tipo, classe))
        return false;
    classe->Criar(*this)->Ler(nomeArquivo);
    FNomeArquivo = nomeArquivo;
    return true;
}

bool TGISObjetoList::Gravar(const QString &nomeArquivo, const QString &tipo)
{
    const TClasseTratador *classe = nullptr;
    if (!ObterRefClassPeloTipo(tipo, classe))
        return false;
    classe->Criar(*this)->Gravar(nomeArquivo);
    FNomeArquivo = nomeArquivo;
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
