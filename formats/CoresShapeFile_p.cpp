#include "CoresShapeFile_p.h"

#include <tavru/core/TGISObjeto.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISCorredor.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exception.h>

#include <QFile>
#include <QFileInfo>
#include <QtGlobal>

namespace tavru::shp {
namespace {

constexpr qint64 TamanhoMaximoCor = 16 * 1024 * 1024;

bool LerCor(const QString &texto, TColor &cor)
{
    if (texto.compare(QLatin1String("nenhuma"), Qt::CaseInsensitive) == 0) {
        cor = clNone;
        return true;
    }
    if (texto.size() != 7 || !texto.startsWith(QLatin1Char('#')))
        return false;
    bool ok = false;
    const uint rgb = texto.mid(1).toUInt(&ok, 16);
    if (!ok)
        return false;
    cor = static_cast<TColor>(((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF));
    return true;
}

QString TextoDaCor(TColor cor)
{
    if (cor == clNone)
        return QStringLiteral("nenhuma");
    const uint c = static_cast<uint>(cor);
    const uint rgb = ((c & 0xFF) << 16) | (c & 0xFF00) | ((c >> 16) & 0xFF);
    return QStringLiteral("#%1").arg(rgb, 6, 16, QLatin1Char('0')).toUpper();
}

void Escrever(QString &texto, const TCores &cores)
{
    if (cores.Caneta)
        texto += QStringLiteral("Caneta=%1\n").arg(TextoDaCor(*cores.Caneta));
    if (cores.Pincel)
        texto += QStringLiteral("Pincel=%1\n").arg(TextoDaCor(*cores.Pincel));
    if (cores.EstiloPincel)
        texto += QStringLiteral("EstiloPincel=%1\n").arg(int(*cores.EstiloPincel));
}

TBrush *PincelDe(TGISObjeto &objeto)
{
    if (auto *area = dynamic_cast<TGISArea *>(&objeto))
        return &area->Pincel();
    if (auto *circular = dynamic_cast<TGISAreaCircular *>(&objeto))
        return &circular->Pincel();
    if (auto *corredor = dynamic_cast<TGISCorredor *>(&objeto))
        return &corredor->Pincel();
    return nullptr;
}

} // namespace

void TCores::Sobrepor(const TCores &outras)
{
    if (outras.Caneta)
        Caneta = outras.Caneta;
    if (outras.Pincel)
        Pincel = outras.Pincel;
    if (outras.EstiloPincel)
        EstiloPincel = outras.EstiloPincel;
}

void TCoresShapeFile::Ler(const QString &nome)
{
    QFile arquivo(nome);
    if (!arquivo.open(QIODevice::ReadOnly) || arquivo.size() > TamanhoMaximoCor)
        throw EFilerError(QStringLiteral("O arquivo de cores \"%1\" não pôde ser lido (ou passa de 16 MB).")
                              .arg(QFileInfo(nome).fileName()));
    const QString texto = QString::fromUtf8(arquivo.readAll());
    TCores *secao = &Geral;
    bool geral = true;
    const QStringList linhas = texto.split(QLatin1Char('\n'));
    for (int n = 0; n < linhas.size(); ++n) {
        const QString linha = linhas[n].trimmed();
        if (linha.isEmpty() || linha.startsWith(QLatin1Char(';')) || linha.startsWith(QLatin1Char('#')))
            continue;
        if (linha.startsWith(QLatin1Char('[')) && linha.endsWith(QLatin1Char(']'))) {
            const QString dentro = linha.mid(1, linha.size() - 2);
            geral = false;
            secao = nullptr;
            bool ok = false;
            if (dentro.startsWith(QLatin1String("Registro "))) {
                const int registro = dentro.mid(9).trimmed().toInt(&ok);
                if (ok)
                    secao = &PorRegistro[registro];
            } else if (dentro.startsWith(QLatin1String("Valor "))) {
                secao = &PorValor[dentro.mid(6).trimmed()];
            }
            if (!secao)
                qWarning("Tavru: seção desconhecida na linha %d do arquivo de cores: pulada", n + 1);
            continue;
        }
        const int igual = linha.indexOf(QLatin1Char('='));
        const QString chave = linha.left(igual).trimmed();
        const QString valor = linha.mid(igual + 1).trimmed();
        bool entendida = igual > 0 && secao;
        if (entendida) {
            TColor cor = clNone;
            bool ok = false;
            if (chave == QLatin1String("Caneta") && LerCor(valor, cor))
                secao->Caneta = cor;
            else if (chave == QLatin1String("Pincel") && LerCor(valor, cor))
                secao->Pincel = cor;
            else if (const int estilo = valor.toInt(&ok); chave == QLatin1String("EstiloPincel") && ok && estilo >= 0
                                                          && estilo <= bsDiagCross)
                secao->EstiloPincel = static_cast<TBrushStyle>(estilo);
            else if (chave == QLatin1String("Campo") && geral)
                Campo = valor;
            else
                entendida = false;
        }
        if (!entendida && igual != 0)
            qWarning("Tavru: linha %d do arquivo de cores não entendida: pulada", n + 1);
    }
}

QByteArray TCoresShapeFile::Texto() const
{
    QString texto = QStringLiteral("; Cores do Shapefile (Tavru GIS)\n");
    Escrever(texto, Geral);
    if (!Campo.isEmpty())
        texto += QStringLiteral("Campo=%1\n").arg(Campo);
    for (const auto &[registro, cores] : PorRegistro) {
        texto += QStringLiteral("[Registro %1]\n").arg(registro);
        Escrever(texto, cores);
    }
    for (const auto &[valor, cores] : PorValor) {
        texto += QStringLiteral("[Valor %1]\n").arg(valor);
        Escrever(texto, cores);
    }
    return texto.toUtf8();
}

TCores TCoresShapeFile::Do(int registro, const TInformacoes &informacoes) const
{
    TCores cores = Geral;
    if (!Campo.isEmpty() && !PorValor.empty()) {
        const int campo = informacoes.ObterIndiceCampo(Campo);
        if (campo >= 0) {
            const auto it = PorValor.find(informacoes.ObterValorCampo(campo).trimmed());
            if (it != PorValor.end())
                cores.Sobrepor(it->second);
        }
    }
    const auto it = PorRegistro.find(registro);
    if (it != PorRegistro.end())
        cores.Sobrepor(it->second);
    return cores;
}

void TCoresShapeFile::Aplicar(const TCores &cores, TGISObjeto &objeto)
{
    if (cores.Caneta)
        objeto.Caneta().Color = *cores.Caneta;
    if (auto *ponto = dynamic_cast<TGISPonto *>(&objeto)) {
        if (cores.Pincel)
            ponto->AtribuirCor(*cores.Pincel);
    } else if (TBrush *pincel = PincelDe(objeto)) {
        if (cores.Pincel)
            pincel->Color = *cores.Pincel;
        if (cores.EstiloPincel)
            pincel->Style = *cores.EstiloPincel;
    }
}

TCores TCoresShapeFile::DoObjeto(const TGISObjeto &objeto)
{
    TCores cores;
    cores.Caneta = objeto.Caneta().Color;
    if (auto *ponto = dynamic_cast<const TGISPonto *>(&objeto)) {
        cores.Pincel = ponto->ObterCor();
    } else if (const TBrush *pincel = PincelDe(const_cast<TGISObjeto &>(objeto))) {
        cores.Pincel = pincel->Color;
        cores.EstiloPincel = pincel->Style;
    }
    return cores;
}

} // namespace tavru::shp
