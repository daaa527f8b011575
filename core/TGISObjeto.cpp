#include <tavru/core/TGISObjeto.h>

#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISObservadores.h>

#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>

#include <tavru/platform/TCanvas.h>

#include <QPointer>

namespace tavru {

namespace {
QPointer<TTabelaDeSimbolos> &TabelaSimbolos()
{
    static QPointer<TTabelaDeSimbolos> tabela;
    return tabela;
}
/// A tabela de símbolos dada a um canvas, no contexto de desenho dele.
struct TTabelaDoCanvas
{
    QPointer<TTabelaDeSimbolos> Tabela;
    bool Dada = false;
};
} // namespace

TGISObjeto::TGISObjeto() = default;

TGISObjeto::~TGISObjeto()
{
    // Liberado direto, sem passar pela lista: ela não fica com um ponteiro para ele (e sai dela
    // antes do aviso, para que ninguém o ache lá durante o aviso).
    if (FLista)
        FLista->Extract(this);
    if (FObservadores)
        FObservadores->Avisar(TGISAviso{gmLiberado, this, nullptr, this});
    LimparDependentes();
    LimparPais();
}

void TGISObjeto::AtribuirPosicao(const TGISPosicao &p)
{
    FPosicao = p;
    Mudou();
    AtualizarDependentes();
}

void TGISObjeto::AtribuirOrientacao(double orientacao)
{
    FOrientacao = orientacao;
    Mudou();
}

bool TGISObjeto::ObterValido() const
{
    return Valida(Area());
}

void TGISObjeto::AtualizarCores(const TTabelaDeCores &tabela)
{
    // Só quando a cor muda: o controle aplica a tabela a cada desenho, e um aviso por quadro
    // invalidaria o que depende do objeto.
    const TColor cor = tabela.ObterCor(FIndiceCor);
    if (cor != ObterCor())
        AtribuirCor(cor);
}

void TGISObjeto::Mudou()
{
    if (FAlterando > 0) {
        FMudouPendente = true;
        return;
    }
    if (FObservadores)
        FObservadores->Avisar(TGISAviso{gmAlterado, this, nullptr, this});
    if (FLista)
        FLista->AvisarAlteracao(this);
}

void TGISObjeto::AdicionarObservador(IGISObservador *observador)
{
    if (!FObservadores)
        FObservadores = std::make_unique<TGISObservadores>();
    FObservadores->Adicionar(observador);
}

void TGISObjeto::RemoverObservador(IGISObservador *observador)
{
    if (FObservadores)
        FObservadores->Remover(observador);
}

TGISObjeto::TAlteracao::~TAlteracao()
{
    if (--FObjeto.FAlterando == 0 && FObjeto.FMudouPendente) {
        FObjeto.FMudouPendente = false;
        FObjeto.Mudou();
    }
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

TTabelaDeSimbolos *TGISObjeto::ObterTabelaSimbolos(TCanvas &canvas)
{
    const TTabelaDoCanvas &t = canvas.Contexto().Obter<TTabelaDoCanvas>();
    return t.Dada ? t.Tabela.data() : ObterTabelaSimbolos();
}

void TGISObjeto::AtribuirTabelaSimbolos(TCanvas &canvas, TTabelaDeSimbolos *tabela)
{
    TTabelaDoCanvas &t = canvas.Contexto().Obter<TTabelaDoCanvas>();
    t.Tabela = tabela;
    t.Dada = true;
}

} // namespace tavru
