#pragma once
/// \file
/// O visualizador do registro de informações de um objeto: uma tabela "Campo" / "Valor".

#include <tavru/platform/Exportacao.h>

#include <QStringList>
#include <QWidget>

class QTableWidget;

namespace tavru {

/// Mostra os campos de um registro de informações (`TInformacoes`), um por linha, com o nome na
/// coluna "Campo" e o valor na coluna "Valor". Só mostra: as células não se editam.
///
/// Recebe as linhas "Nome=Valor" do registro (`TInformacoes::Linhas`), que o controle do mapa lhe
/// entrega quando um objeto é selecionado, e guarda uma cópia delas: mudar o objeto depois não muda
/// o que está na tela até a próxima entrega. O controle do mapa guarda uma referência ao
/// visualizador e a esquece quando ele é destruído.
class TAVRU_COMPONENTES_EXPORT TVisualizadorInformacoes : public QWidget
{
    Q_OBJECT
public:
    explicit TVisualizadorInformacoes(QWidget *parent = nullptr);
    ~TVisualizadorInformacoes() override;

    /// Mostra os campos das linhas "Nome=Valor", na ordem (o nome é o texto antes do primeiro "=").
    void AtribuirInformacoes(const QStringList &linhas);
    /// Esvazia a tabela.
    void Limpar();

    /// As linhas mostradas, como foram entregues.
    const QStringList &Informacoes() const { return FLinhas; }
    /// Número de campos mostrados.
    int ObterTotal() const;
    /// O texto da célula da linha `linha`, coluna 0 (campo) ou 1 (valor); vazio fora da tabela.
    QString ObterCelula(int linha, int coluna) const;
    /// A tabela, para quem quiser ajustar a aparência.
    QTableWidget *Tabela() const { return FTabela; }

private:
    QTableWidget *FTabela;
    QStringList FLinhas;
};

} // namespace tavru
