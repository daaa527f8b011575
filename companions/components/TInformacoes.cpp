#include <tavru/companions/components/TInformacoes.h>

#include <tavru/platform/TObjectList.h>

namespace tavru {

namespace {
// O nome é o que vem antes do primeiro "="; sem "=", a linha inteira.
QStringView NomeDaLinha(const QString &linha)
{
    const qsizetype p = linha.indexOf(QLatin1Char('='));
    return p < 0 ? QStringView(linha) : QStringView(linha).left(p);
}
} // namespace

void TInformacoes::Verificar(int i) const
{
    if (i < 0 || i >= ObterTotal())
        ErroIndiceLista(i);
}

QString TInformacoes::Linha(const QString &nome, const QString &valor)
{
    return nome + QLatin1Char('=') + valor;
}

QString TInformacoes::ObterNomeCampo(int i) const
{
    Verificar(i);
    return NomeDaLinha(FLinhas[i]).toString();
}

QString TInformacoes::ObterValorCampo(int i) const
{
    Verificar(i);
    const QString &linha = FLinhas[i];
    const qsizetype p = linha.indexOf(QLatin1Char('='));
    return p < 0 ? QString() : linha.mid(p + 1);
}

int TInformacoes::ObterIndiceCampo(const QString &nome) const
{
    for (int i = 0; i < ObterTotal(); ++i)
        if (NomeDaLinha(FLinhas[i]) == nome)
            return i;
    return -1;
}

QString TInformacoes::ObterValor(const QString &nome) const
{
    const int i = ObterIndiceCampo(nome);
    return i < 0 ? QString() : ObterValorCampo(i);
}

int TInformacoes::AtribuirCampo(const QString &nome, const QString &valor)
{
    const int i = ObterIndiceCampo(nome);
    if (i < 0)
        return AdicionarCampo(nome, valor);
    FLinhas[i] = Linha(nome, valor);
    return i;
}

int TInformacoes::AdicionarCampo(const QString &nome, const QString &valor)
{
    FLinhas.append(Linha(nome, valor));
    return ObterTotal() - 1;
}

void TInformacoes::AtribuirValorCampo(int i, const QString &valor)
{
    Verificar(i);
    FLinhas[i] = Linha(NomeDaLinha(FLinhas[i]).toString(), valor);
}

void TInformacoes::RemoverCampo(int i)
{
    Verificar(i);
    FLinhas.removeAt(i);
}

} // namespace tavru
