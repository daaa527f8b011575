#pragma once
// Objetos e tratadores mínimos para testar o núcleo sem os elementos concretos.

#include <tavru/core/GISBase.h>

#include <QStringList>

namespace tavru::teste {

/// Objeto com extensão fixa que anota cada `AtribuirPosicao` num diário compartilhado.
class TObjetoTeste : public TGISObjeto
{
public:
    static const TClasseObjeto ClasseTeste;

    explicit TObjetoTeste(const QString &nome = QString(), QStringList *diario = nullptr)
        : FNome(nome), FDiario(diario)
    {
        if (!nome.isEmpty())
            Informacoes().AtribuirCampo(QStringLiteral("Nome"), nome);
    }

    void AtribuirPosicao(const TGISPosicao &p) override
    {
        if (FDiario)
            FDiario->append(FNome);
        TGISObjeto::AtribuirPosicao(p);
    }
    const TClasseObjeto &Classe() const override { return ClasseTeste; }
    void AtribuirCor(TColor cor) override { FCor = cor; Mudou(); }
    TColor ObterCor() const override { return FCor; }
    bool ConfiguracaoPadrao(const TGISProjecao &, const TPoint &) override { return true; }
    void Desenhar(TCanvas &, const TGISProjecao &, bool) override {}
    bool Pertence(const TGISProjecao &, const TPoint &) override { return false; }
    TGISRet Area() const override { return FArea; }

    TGISRet FArea = GISRet(0, 0, 0, 0);
    TColor FCor = clNone;

private:
    QString FNome;
    QStringList *FDiario;
};

} // namespace tavru::teste
