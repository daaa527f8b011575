// Avisos do modelo: listas de objetos e de camadas e objetos avisam cada mudança uma vez, com o
// item certo; donos postos e tirados; lotes; contador da camada.

#include "ObjetosDeTeste.h"

#include <tavru/core/TGISCamadaList.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

using namespace tavru;
using tavru::teste::TObjetoTeste;

namespace {

/// Anota cada aviso como "tipo:nome" (nome do campo "Nome" do objeto, ou da camada; "-" sem item).
class TDiarioDeAvisos : public IGISObservador
{
public:
    void GISMudou(const TGISAviso &a) override
    {
        static const char *tipos[] = {"inc", "ext", "lib", "mov", "alt", "lote"};
        QString nome = QStringLiteral("-");
        if (a.Objeto)
            nome = a.Objeto->Informacoes().ObterValor(QStringLiteral("Nome"));
        else if (a.Camada)
            nome = a.Camada->Nome();
        Avisos.append(QStringLiteral("%1:%2").arg(QLatin1String(tipos[a.Mudanca]), nome));
    }
    QStringList Tirar()
    {
        QStringList a;
        a.swap(Avisos);
        return a;
    }
    QStringList Avisos;
};

using L = QStringList;

/// Acrescenta três objetos e falha.
class TTratadorQueFalha : public TGISTratadorDeArquivo
{
public:
    static const TClasseTratador Classe;
    using TGISTratadorDeArquivo::TGISTratadorDeArquivo;
    void Ler(const QString &) override
    {
        for (int i = 0; i < 3; ++i)
            Lista().Add(new TObjetoTeste(QStringLiteral("L")));
        throw EInOutError(QStringLiteral("falhou no meio"));
    }
    void Gravar(const QString &) override {}
    bool Reconhece(QIODevice &) override { return true; }
};
const TClasseTratador TTratadorQueFalha::Classe = TClasseTratador::De<TTratadorQueFalha>("TTratadorQueFalha");

} // namespace

TEST(Avisos, ListaDeObjetosAvisaCadaMudancaUmaVezComOItemEODono)
{
    TGISObjetoList lista;
    TDiarioDeAvisos diario;
    lista.AdicionarObservador(&diario);
    auto *a = new TObjetoTeste(QStringLiteral("A"));
    auto *b = new TObjetoTeste(QStringLiteral("B"));
    auto *c = new TObjetoTeste(QStringLiteral("C"));
    EXPECT_EQ(a->Lista(), nullptr);
    lista.Add(a);
    lista.Insert(0, b);
    lista.Add(c);
    EXPECT_EQ(diario.Tirar(), (L{"inc:A", "inc:B", "inc:C"}));
    EXPECT_EQ(a->Lista(), &lista);
    EXPECT_EQ(b->Lista(), &lista);

    lista.Exchange(0, 2); // C A B
    lista.Move(0, 1);     // A C B
    EXPECT_EQ(diario.Tirar(), (L{"mov:B", "mov:C"}));

    std::unique_ptr<TGISObjeto> extraido(lista.Extract(c));
    EXPECT_EQ(diario.Tirar(), (L{"ext:C"}));
    EXPECT_EQ(extraido->Lista(), nullptr);
    extraido->AtribuirVisivel(false); // solto: ninguém ouve
    EXPECT_TRUE(diario.Avisos.isEmpty());

    auto *d = new TObjetoTeste(QStringLiteral("D"));
    lista.AtribuirGISObjeto(1, d); // B sai liberado, D entra
    EXPECT_EQ(diario.Tirar(), (L{"lib:B", "inc:D"}));
    lista.Remove(a);
    lista.Delete(0);
    EXPECT_EQ(diario.Tirar(), (L{"lib:A", "lib:D"}));

    // Um índice ruim não muda nada e não avisa.
    EXPECT_THROW(lista.Delete(0), EListError);
    EXPECT_THROW(lista.Move(0, 1), EListError);
    EXPECT_TRUE(diario.Avisos.isEmpty());
    lista.RemoverObservador(&diario);
    lista.Add(new TObjetoTeste(QStringLiteral("E")));
    EXPECT_TRUE(diario.Avisos.isEmpty());
}

TEST(Avisos, MudancasDoObjetoPelaApiChegamALista)
{
    TGISObjetoList lista;
    TDiarioDeAvisos daLista;
    TDiarioDeAvisos doObjeto;
    lista.AdicionarObservador(&daLista);
    auto *a = new TObjetoTeste(QStringLiteral("A"));
    a->AdicionarObservador(&doObjeto);
    lista.Add(a);
    daLista.Tirar();

    a->AtribuirPosicao(GISPosicao(1, 2));
    a->AtribuirOrientacao(0.5);
    a->AtribuirVisivel(false);
    a->AtribuirRotuloVisivel(true);
    a->AtribuirIndiceCor(3);
    a->AtribuirCaneta(TPen());
    EXPECT_EQ(daLista.Tirar(), L(6, QStringLiteral("alt:A")));
    EXPECT_EQ(doObjeto.Tirar(), L(6, QStringLiteral("alt:A")));

    // O que não é extensão nem aparência não avisa; uma mudança por referência, só com Mudou.
    a->AtribuirCodigo(7);
    a->AtribuirReferencia(&lista);
    a->Caneta().Width = 9;
    EXPECT_TRUE(daLista.Avisos.isEmpty());
    a->Mudou();
    EXPECT_EQ(daLista.Tirar(), (L{"alt:A"}));

    // Um dependente que segue o pai avisa por si, na lista dele.
    TGISObjetoList outra;
    TDiarioDeAvisos daOutra;
    outra.AdicionarObservador(&daOutra);
    auto *dependente = new TObjetoTeste(QStringLiteral("D"));
    outra.Add(dependente);
    a->IncluirDependente(dependente);
    daOutra.Tirar();
    daLista.Tirar();
    a->AtribuirPosicao(GISPosicao(5, 5));
    EXPECT_EQ(daLista.Tirar(), (L{"alt:A"}));
    EXPECT_EQ(daOutra.Tirar(), (L{"alt:D"}));

    // A liberação é avisada a quem observa o objeto, antes de liberar.
    doObjeto.Tirar();
    lista.Remove(a);
    EXPECT_EQ(doObjeto.Tirar(), (L{"lib:A"}));
}

TEST(Avisos, LotesClearLerEDestruicao)
{
    const std::vector<TRegistro> salvo = TGISObjetoList::ObterRegistro();
    TGISObjetoList lista;
    TDiarioDeAvisos diario;
    lista.AdicionarObservador(&diario);
    auto *a = new TObjetoTeste(QStringLiteral("A"));
    auto *b = new TObjetoTeste(QStringLiteral("B"));
    TDiarioDeAvisos deA;
    a->AdicionarObservador(&deA);
    lista.Add(a);
    lista.Add(b);
    diario.Tirar();
    const std::uint64_t antes = lista.ContadorDeMudancas();

    lista.Clear();
    EXPECT_EQ(diario.Tirar(), (L{"lote:-"}));
    EXPECT_EQ(deA.Tirar(), (L{"lib:A"})); // quem observa o objeto sabe que ele morreu
    EXPECT_EQ(lista.ContadorDeMudancas(), antes + 1);
    lista.Clear(); // nada mudou: nada a avisar
    EXPECT_TRUE(diario.Avisos.isEmpty());

    // Um lote do hospedeiro, aninhado, e com mudanças dos objetos dentro.
    auto *c = new TObjetoTeste(QStringLiteral("C"));
    lista.IniciarLote();
    lista.Add(c);
    lista.IniciarLote();
    c->AtribuirVisivel(false);
    lista.TerminarLote();
    EXPECT_TRUE(diario.Avisos.isEmpty());
    lista.TerminarLote();
    EXPECT_EQ(diario.Tirar(), (L{"lote:-"}));
    EXPECT_EQ(c->Lista(), &lista); // o dono é posto mesmo dentro do lote

    // Ler: um lote só, mesmo quando o tratador falha no meio (o que foi lido fica).
    TGISObjetoList::RestaurarRegistro({});
    TGISObjetoList::RegistrarTratadorDeArquivo(QStringLiteral("T"), TTratadorQueFalha::Classe, QString(), QString());
    EXPECT_THROW(lista.Ler(QStringLiteral("x.t"), QStringLiteral("T")), EInOutError);
    EXPECT_EQ(diario.Tirar(), (L{"lote:-"}));
    EXPECT_EQ(lista.Count(), 4);
    TGISObjetoList::RestaurarRegistro(salvo);

    // Destruir a lista tira os donos antes de liberar e não avisa a lista.
    auto *d = new TObjetoTeste(QStringLiteral("D"));
    TDiarioDeAvisos deD;
    d->AdicionarObservador(&deD);
    {
        TGISObjetoList temporaria;
        TDiarioDeAvisos daTemporaria;
        temporaria.AdicionarObservador(&daTemporaria);
        temporaria.Add(d);
        daTemporaria.Tirar();
        temporaria.RemoverObservador(&daTemporaria);
    }
    EXPECT_EQ(deD.Tirar(), (L{"lib:D"}));
}

TEST(Avisos, ObjetoLiberadoForaDaListaSaiDela)
{
    TGISObjetoList lista;
    auto *a = new TObjetoTeste(QStringLiteral("A"));
    lista.Add(a);
    lista.Add(new TObjetoTeste(QStringLiteral("B")));
    delete a; // sem passar pela lista
    ASSERT_EQ(lista.Count(), 1);
    EXPECT_EQ(lista[0]->Informacoes().ObterValor(QStringLiteral("Nome")), QStringLiteral("B"));
}

TEST(Avisos, CamadasAvisamECamadaContaAsMudancas)
{
    TGISCamadaList camadas;
    TDiarioDeAvisos diario;
    camadas.AdicionarObservador(&diario);
    auto *rios = new TGISCamada(QStringLiteral("Rios"));
    auto *lagos = new TGISCamada(QStringLiteral("Lagos"));
    camadas.Add(rios);
    camadas.Add(rios); // já está: nada
    camadas.Insert(0, lagos);
    camadas.Exchange(0, 1);
    std::unique_ptr<TGISCamada> extraida(camadas.Extract(lagos));
    camadas.Delete(0);
    EXPECT_EQ(diario.Tirar(), (L{"inc:Rios", "inc:Lagos", "mov:Lagos", "ext:Lagos", "lib:Rios"}));
    camadas.Add(extraida.release());
    camadas.Add(new TGISCamada(QStringLiteral("Mar")));
    diario.Tirar();
    camadas.Clear();
    EXPECT_EQ(diario.Tirar(), (L{"lote:-"}));

    // O contador da camada cresce um por aviso; as operações em massa da camada contam um.
    TGISCamada camada(QStringLiteral("C"));
    for (const char *n : {"A", "B", "C"})
        camada.Objetos().Add(new TObjetoTeste(QString::fromLatin1(n)));
    std::uint64_t contador = camada.ContadorDeMudancas();
    EXPECT_EQ(contador, 3u);
    camada.Objetos()[1]->AtribuirVisivel(false);
    EXPECT_EQ(camada.ContadorDeMudancas(), ++contador);
    camada.Visibilidade(true, true);
    EXPECT_EQ(camada.ContadorDeMudancas(), ++contador);
    camada.AtribuirCor(clRed);
    EXPECT_EQ(camada.ContadorDeMudancas(), ++contador);
    camada.InverterOrdem();
    EXPECT_EQ(camada.ContadorDeMudancas(), ++contador);
    camada.AtribuirCor(clNone); // só tira a cor da camada
    camada.Objetos().CalcularLimites();
    EXPECT_EQ(camada.ContadorDeMudancas(), contador);
}

TEST(Avisos, ObservadorQueSaiDuranteOAviso)
{
    TGISObjetoList lista;
    struct TQueSai : IGISObservador
    {
        TGISObjetoList *Lista = nullptr;
        int Avisos = 0;
        void GISMudou(const TGISAviso &) override
        {
            ++Avisos;
            Lista->RemoverObservador(this);
        }
    } primeiro, segundo;
    primeiro.Lista = segundo.Lista = &lista;
    lista.AdicionarObservador(&primeiro);
    lista.AdicionarObservador(&segundo);
    lista.Add(new TObjetoTeste);
    lista.Add(new TObjetoTeste);
    EXPECT_EQ(primeiro.Avisos, 1);
    EXPECT_EQ(segundo.Avisos, 1);
}
