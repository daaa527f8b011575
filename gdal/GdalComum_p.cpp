#include "GdalComum_p.h"

#include <cpl_error.h>
#include <cpl_vsi.h>
#include <gdal.h>
#include <ogr_spatialref.h>

#include <tavru/core/TGISObjetoList.h>
#include <tavru/gdal/TTratadorDeArquivosOGR.h>
#include <tavru/gdal/TTratadorDeImagensGDAL.h>

#include <QAtomicInteger>
#include <QFileInfo>
#include <QRegularExpression>
#include <QFile>
#include <algorithm>
#include <cmath>
#include <mutex>

namespace tavru::gdal {

void IniciarGdal()
{
    static std::once_flag feito;
    std::call_once(feito, [] { GDALAllRegister(); });
}

TSilenciarGdal::TSilenciarGdal()
{
    CPLPushErrorHandler(CPLQuietErrorHandler);
    CPLErrorReset();
}

TSilenciarGdal::~TSilenciarGdal()
{
    CPLPopErrorHandler();
}

QString TSilenciarGdal::Motivo(const QString &padrao)
{
    const char *m = CPLGetLastErrorMsg();
    if (!m || !*m)
        return padrao;
    QString texto = QString::fromUtf8(m).simplified();
    if (texto.size() > 200)
        texto = texto.left(200) + QStringLiteral("...");
    return texto;
}

QByteArray NomeParaGdal(const QString &nome)
{
    return QFile::encodeName(nome);
}

const OGRSpatialReference &Wgs84()
{
    static const OGRSpatialReference srs = [] {
        OGRSpatialReference s;
        s.SetWellKnownGeogCS("WGS84");
        s.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        return s;
    }();
    return srs;
}

namespace {
thread_local int SoONome = 0;
} // namespace

TSoONome::TSoONome()
{
    ++SoONome;
}

TSoONome::~TSoONome()
{
    --SoONome;
}

bool TSoONome::Ativo()
{
    return SoONome > 0;
}

bool OutroTratadorPede(const QString &arquivo)
{
    const QString nome = QFileInfo(arquivo).fileName();
    for (const TRegistro &r : TGISObjetoList::ObterRegistro()) {
        if (!r.Classe || *r.Classe == TTratadorDeArquivosOGR::Classe || *r.Classe == TTratadorDeImagensGDAL::Classe)
            continue;
        QString padroes = r.FiltroLeitura.mid(r.FiltroLeitura.indexOf(QLatin1Char('|')) + 1);
        padroes.truncate(padroes.indexOf(QLatin1Char('|')) < 0 ? padroes.size() : padroes.indexOf(QLatin1Char('|')));
        for (const QString &p : padroes.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            const QString padrao = p.trimmed();
            if (padrao == QLatin1String("*.*") || padrao == QLatin1String("*"))
                continue;
            const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(padrao),
                                        QRegularExpression::CaseInsensitiveOption);
            if (re.match(nome).hasMatch())
                return true;
        }
    }
    return false;
}

TArquivoEmMemoria::TArquivoEmMemoria(const QString &extensao, const QByteArray &bytes)
{
    static QAtomicInteger<quint64> contador;
    FNome = QStringLiteral("/vsimem/tavru_%1.%2").arg(contador.fetchAndAddRelaxed(1)).arg(extensao).toUtf8();
    if (!bytes.isNull())
        VSIFCloseL(VSIFileFromMemBuffer(FNome.constData(),
                                        reinterpret_cast<GByte *>(const_cast<char *>(bytes.constData())),
                                        static_cast<vsi_l_offset>(bytes.size()), FALSE));
}

TArquivoEmMemoria::~TArquivoEmMemoria()
{
    VSIUnlink(FNome.constData());
}

QByteArray TArquivoEmMemoria::Bytes() const
{
    vsi_l_offset tamanho = 0;
    const GByte *dados = VSIGetMemFileBuffer(FNome.constData(), &tamanho, FALSE);
    return dados ? QByteArray(reinterpret_cast<const char *>(dados), static_cast<qsizetype>(tamanho)) : QByteArray();
}

} // namespace tavru::gdal
