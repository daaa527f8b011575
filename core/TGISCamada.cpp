#include <tavru/core/TGISCamada.h>

#include <tavru/companions/geodesy/GISPosicao.h>

namespace tavru {

TGISCamada::TGISCamada(const QString &nome) : FNome(nome) {}

TGISCamada::~TGISCamada() = default;

void TGISCamada::AtribuirCor(TColor cor)
{
    FCorAtribuida = cor != clNone;
    FCor = cor;
    if (!FCorAtribuida)
        return;
    FObjetos.IniciarLote();
    try {
        for (TGISObjeto *o : FObjetos)
            if (o)
                o->AtribuirCor(cor);
    } catch (...) {
        FObjetos.TerminarLote();
        throw;
    }
    FObjetos.TerminarLote();
}

void TGISCamada::Visibilidade(bool visivel, bool rotuloVisivel)
{
    FObjetos.IniciarLote();
    for (TGISObjeto *o : FObjetos) {
        if (!o)
            continue;
        o->AtribuirVisivel(visivel);
        o->AtribuirRotuloVisivel(rotuloVisivel);
    }
    FObjetos.TerminarLote();
}

QString TGISCamada::ObterProximoNome(const QString &prefixo) const
{
    for (long long n = 1;; ++n) {
        const QString nome = prefixo + StrZero(n, 3);
        if (ObterIndiceObjeto(QStringLiteral("Nome"), nome) < 0)
            return nome;
    }
}

int TGISCamada::ObterIndiceObjeto(const QString &campo, const QString &valor) const
{
    const TGISObjeto *o = FObjetos.ObterObjeto(campo, valor);
    return o ? FObjetos.IndexOf(o) : -1;
}

int TGISCamada::ObterIndiceObjeto(std::uint32_t codigo) const
{
    for (int i = 0; i < FObjetos.Count(); ++i)
        if (const TGISObjeto *o = FObjetos[i]; o && o->Codigo() == codigo)
            return i;
    return -1;
}

int TGISCamada::ObterIndiceObjeto(const TGISObjeto *objeto) const
{
    return FObjetos.IndexOf(objeto);
}

void TGISCamada::InverterOrdem()
{
    const int total = FObjetos.Count();
    FObjetos.IniciarLote();
    try {
        for (int i = 0; i <= total / 2; ++i)
            FObjetos.Exchange(i, total - 1 - i);
    } catch (...) {
        FObjetos.TerminarLote(); // a camada vazia levanta, de propósito, sem ter mudado
        throw;
    }
    FObjetos.TerminarLote();
}

} // namespace tavru
