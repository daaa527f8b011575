#pragma once
/// \file
/// A barra de ferramentas geral do mapa.

#include <tavru/companions/components/TCustomBarraDeFerramentas.h>
#include <tavru/platform/Exportacao.h>

namespace tavru {

class TGis;
class TLigacaoAoGis;

/// Barra geral de um `TGis`: dez lugares, na ordem (índice, dica, bitmap do módulo, grupo):
///
/// | 0 | "Interrogar" | `BMP_INTERROGAR` | 1 |
/// | 1 | "Editar" | `BMP_EDITAR` | 1 |
/// | 2 | (lugar vazio) | | |
/// | 3 | "Visualizar" | `BMP_VISUALIZAR` | padrão (`TListaBotoes::GrupoPadrao`) |
/// | 4 | "Ajustar a Janela" | `BMP_AJUSTARZOOM` | 0 |
/// | 5 | "Ampliar uma Área" | `BMP_ZOOMRET` | padrão |
/// | 6 | "Ampliar" | `BMP_AMPLIAR` | padrão |
/// | 7 | "Reduzir" | `BMP_REDUZIR` | padrão |
/// | 8 | "Altera Cor de Fundo" | `BMP_COR` | 0 |
/// | 9 | "Alterar a Fonte" | `BMP_FONTE` | 0 |
///
/// O grupo 1 deixa no máximo um de "Interrogar" e "Editar" abaixado; os do grupo padrão se
/// excluem entre si; os do grupo 0 são de apertar e soltar.
///
/// De propósito, a barra só age pelo botão "Alterar a Fonte": com um mapa, ele pergunta a fonte
/// dos rótulos (pelo provedor de diálogos, começando pela `FonteRotulo` do mapa) e, confirmada, a
/// troca e redesenha o mapa. Todos os outros botões, "Altera Cor de Fundo" inclusive, não fazem
/// nada: o hospedeiro observa os botões (`ObterBotao(i)`, sinal `clicked`) e decide. A barra não
/// é ferramenta do mapa (não se registra nele).
///
/// Posse: o mapa não é possuído; a barra o esquece quando ele é destruído.
class TAVRU_GIS_EXPORT TGISBarraDeFerramenta : public TCustomBarraDeFerramentas
{
    Q_OBJECT
    Q_PROPERTY(QString GIS READ NomeDoGis WRITE AtribuirNomeDoGis)
public:
    /// Os índices dos botões.
    enum TBotao : int {
        bfInterrogar = 0,
        bfEditar = 1,
        bfVisualizar = 3,
        bfAjustar = 4,
        bfAmpliarArea = 5,
        bfAmpliar = 6,
        bfReduzir = 7,
        bfCorDeFundo = 8,
        bfFonte = 9
    };

    explicit TGISBarraDeFerramenta(QWidget *parent = nullptr);
    ~TGISBarraDeFerramenta() override;

    TGis *GIS() const { return FGis; }
    /// Guarda o mapa (não possuído; nulo: nenhum).
    void AtribuirGis(TGis *gis);
    /// Extensão: o nome (`objectName`) do mapa a que um formulário liga este componente,
    /// procurado na janela quando ele aparece (ver `TLigacaoAoGis`); vazio: nenhum.
    QString NomeDoGis() const;
    void AtribuirNomeDoGis(const QString &nome);
    /// O nome que o código gerado pelo uic chama para `GIS`.
    void setGIS(const QString &nome) { AtribuirNomeDoGis(nome); }

protected:
    /// Monta os dez lugares da tabela; depois os botões 0 e 1 vão para o grupo 1 e os 4, 9 e 8
    /// para o grupo 0.
    void CriarComponentes() override;
    /// Só o índice 9, e só com um mapa: pergunta a fonte dos rótulos e, confirmada, a troca e
    /// redesenha; depois `Atualizar`. Os outros índices não fazem nada.
    void DoClicar(int indice) override;
    /// O mapa está sendo destruído: esquece-o.
    void Notification();

private:
    TLigacaoAoGis *FLigacao = nullptr; ///< criada com o primeiro nome; filha do componente
    TGis *FGis = nullptr;
};

} // namespace tavru
