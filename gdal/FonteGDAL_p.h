#pragma once
// Uma figura aberta pelo GDAL, já em latitude e longitude: o arquivo, a reprojeção (um VRT de
// reprojeção do GDAL, quando a figura está num sistema projetado ou girada) e a leitura de uma
// janela da figura numa resolução qualquer, em cores RGBA de 8 bits por canal.

#include <QImage>
#include <QRectF>
#include <QString>
#include <mutex>

class GDALDataset;

namespace tavru::gdal {

class TFonteGDAL
{
public:
    /// Abre `nome` (que já se sabe ser um arquivo comum).
    /// \throws EInOutError o GDAL não abre, a figura não tem georreferência, não se converte
    ///         para latitude e longitude ou cai fora do mundo.
    explicit TFonteGDAL(const QString &nome);
    ~TFonteGDAL();
    TFonteGDAL(const TFonteGDAL &) = delete;
    TFonteGDAL &operator=(const TFonteGDAL &) = delete;

    /// Tamanho da figura em latitude e longitude, em pixels.
    int Largura() const { return FLargura; }
    int Altura() const { return FAltura; }
    /// Oeste, norte, leste e sul, em graus.
    double Oeste() const { return FOeste; }
    double Norte() const { return FNorte; }
    double Leste() const { return FLeste; }
    double Sul() const { return FSul; }
    /// Se a figura passou pela reprojeção do GDAL.
    bool Reprojetada() const { return FVrt != nullptr; }

    /// A janela `janela` da figura (em pixels dela, frações valem) em `tamanho` pixels, vizinho
    /// mais próximo; o GDAL usa as visões reduzidas (overviews) quando a figura as tem. Fora da
    /// figura e onde ela não tem dados, transparente. Uma trava protege o GDAL: pode ser chamada
    /// de duas linhas de execução. Nula quando a leitura falha ou falta memória.
    QImage Ler(const QRectF &janela, QSize tamanho) const;
    /// A figura inteira com o lado maior de no máximo `lado` pixels.
    QImage Previa(int lado) const;

private:
    GDALDataset *Usada() const;

    GDALDataset *FArquivo = nullptr;
    GDALDataset *FVrt = nullptr;
    int FLargura = 0, FAltura = 0;
    double FOeste = 0, FNorte = 0, FLeste = 0, FSul = 0;
    int FBandas[4] = {1, 1, 1, 0}; ///< banda de R, G, B e alfa (0: opaca)
    bool FPaleta = false;
    QRgb FCores[256] = {};
    mutable std::mutex FTrava;
};

} // namespace tavru::gdal
