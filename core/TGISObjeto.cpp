#include <tavru/core/TGISObjeto.h>

#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>

#include <QPointer>

namespace tavru {

namespace {
QPointer<TTabelaDeSimbolos> &TabelaSimbolos()
{
    static QPointer<TTabelaDeSimbolos> tabela;
    return tabela;
}
} // namespace

TGISObjeto::TGISObjeto() = default;

TGISObjeto::~TGISObjeto()
{
    LimparDependentes();
    LimparPais();
}

void TGISObjeto::AtribuirPosicao(const TGISPosicao &p)
{
    FPosicao = p;
    AtualizarDependentes();
}

void TGISObjeto::AtribuirOrientacao(double orientacao)
{
    FOrientacao = orientacao;
}

bool TGISObjeto::ObterValido() const
{
    return Valida(Area());
}

void TGISObjeto::AtualizarCores(const TTabelaDeCores &tabela)
{
    AtribuirCor(tabela.ObterCor(FIndiceCor));
}

void TGISObjeto::IncluirDependente(TGISObjeto *o)
{
    if (!o)
        return;
    if (FDependentes.IndexOf(o) < 0) {
        FDependentes.Add(o);
        o->FPais.Add(this);
    }
    o->AtribuirPosicao(FPosicao);
}

void TGISObjeto::AtualizarDependentes()
{
    if (FAtualizando)
        return;
    FAtualizando = true;
    try {
        for (int i = 0; i < FDependentes.Count(); ++i)
            FDependentes[i]->AtribuirPosicao(FPosicao);
    } catch (...) {
        FAtualizando = false;
        throw;
    }
    FAtualizando = false;
}

void TGISObjeto::RemoverDependente(TGISObjeto *o)
{
    if (!o || !FDependentes.Extract(o))
        return;
    o->FPais.Extract(this);
}

void TGISObjeto::LimparDependentes()
{
    for (int i = FDependentes.Count() - 1; i >= 0; --i)
        RemoverDependente(FDependentes[i]);
}

void TGISObjeto::LimparPais()
{
    for (int i = FPais.Count() - 1; i >= 0; --i)
        FPais[i]->RemoverDependente(this);
}

TTabelaDeSimbolos *TGISObjeto::ObterTabelaSimbolos()
{
    return TabelaSimbolos().data();
}

void TGISObjeto::AtribuirTabelaSimbolos(TTabelaDeSimbolos *tabela)
{
    TabelaSimbolos() = tabela;
}

} // namespace tavru
