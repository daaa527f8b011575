#include "ConversorPrj_p.h"

#include <tavru/platform/Exception.h>

#include <QFile>
#include <QFileInfo>

#include <proj.h>

#include <cmath>

namespace tavru::shp {
namespace {

// Um .prj é uma linha de WKT; um arquivo maior que isto não é um .prj.
constexpr qint64 TamanhoMaximoPrj = 64 * 1024;

struct TLiberarPJ
{
    PJ_CONTEXT *Contexto;
    PJ *Objeto;
    ~TLiberarPJ()
    {
        if (Objeto)
            proj_destroy(Objeto);
    }
};

QString Nome(const QString &caminho)
{
    return QFileInfo(caminho).fileName();
}

} // namespace

TConversorPrj::TConversorPrj(const QString &nomeShp, const QString &nomePrj, double minX, double minY, double maxX,
                             double maxY)
{
    QFile prj(nomePrj);
    if (!prj.exists()) {
        if (minX < -180.0 || maxX > 180.0 || minY < -90.0 || maxY > 90.0 || !(minX <= maxX) || !(minY <= maxY))
            throw EFilerError(QStringLiteral("O Shapefile \"%1\" não tem o arquivo de projeção .prj e as suas "
                                             "coordenadas não são graus (passam de ±180/±90): não há como saber onde "
                                             "elas estão.")
                                  .arg(Nome(nomeShp)));
        return;
    }
    if (!prj.open(QIODevice::ReadOnly) || prj.size() > TamanhoMaximoPrj)
        throw EFilerError(QStringLiteral("O arquivo de projeção \"%1\" não pôde ser lido.").arg(Nome(nomePrj)));
    const QByteArray wkt = prj.readAll().trimmed();
    // Um sistema geográfico já está em graus: sem o PROJ, que abriria a sua base de dados só para
    // dizer isso (milissegundos por arquivo). WKT1 ("GEOGCS[") e WKT2 ("GEOGCRS[").
    const QByteArray inicio = wkt.left(8).toUpper();
    if (inicio.startsWith("GEOGCS[") || inicio.startsWith("GEOGCRS["))
        return;

    FContexto = proj_context_create();
    proj_log_level(FContexto, PJ_LOG_NONE);
    proj_context_set_enable_network(FContexto, 0);
    // O contexto só fica quando há projeção a desfazer; é liberado depois dos objetos do PROJ.
    struct TGuardaContexto
    {
        PJ_CONTEXT *&Contexto;
        bool Manter = false;
        ~TGuardaContexto()
        {
            if (!Manter) {
                proj_context_destroy(Contexto);
                Contexto = nullptr;
            }
        }
    } guardaContexto{FContexto};
    const auto erro = [&](const QString &motivo) {
        return EFilerError(QStringLiteral("O arquivo de projeção \"%1\" não foi entendido: %2.").arg(Nome(nomePrj), motivo));
    };
    PJ *crs = wkt.isEmpty() ? nullptr : proj_create_from_wkt(FContexto, wkt.constData(), nullptr, nullptr, nullptr);
    if (!crs)
        throw erro(QStringLiteral("não é um sistema de coordenadas em WKT"));
    TLiberarPJ liberarCrs{FContexto, crs};
    PJ *horizontal = nullptr;
    if (proj_get_type(crs) == PJ_TYPE_COMPOUND_CRS)
        horizontal = proj_crs_get_sub_crs(FContexto, crs, 0);
    TLiberarPJ liberarHorizontal{FContexto, horizontal};
    PJ *sistema = horizontal ? horizontal : crs;
    switch (proj_get_type(sistema)) {
    case PJ_TYPE_GEOGRAPHIC_2D_CRS:
    case PJ_TYPE_GEOGRAPHIC_3D_CRS:
        return; // já em graus
    case PJ_TYPE_PROJECTED_CRS:
        break;
    default:
        throw erro(QStringLiteral("o sistema não é geográfico nem projetado"));
    }
    PJ *geografico = proj_crs_get_geodetic_crs(FContexto, sistema);
    TLiberarPJ liberarGeografico{FContexto, geografico};
    PJ *operacao = geografico ? proj_create_crs_to_crs_from_pj(FContexto, sistema, geografico, nullptr, nullptr) : nullptr;
    TLiberarPJ liberarOperacao{FContexto, operacao};
    // Ordem (leste, norte) -> (longitude, latitude), seja qual for a ordem dos eixos do sistema.
    FTransformacao = operacao ? proj_normalize_for_visualization(FContexto, operacao) : nullptr;
    if (!FTransformacao)
        throw erro(QStringLiteral("o PROJ não desfaz esta projeção"));
    guardaContexto.Manter = true;
}

TConversorPrj::~TConversorPrj()
{
    if (FTransformacao)
        proj_destroy(FTransformacao);
    if (FContexto)
        proj_context_destroy(FContexto);
}

bool TConversorPrj::Converter(double *x, double *y, int n) const
{
    if (FTransformacao && n > 0) {
        proj_errno_reset(FTransformacao);
        proj_trans_generic(FTransformacao, PJ_FWD, x, sizeof(double), static_cast<size_t>(n), y, sizeof(double),
                           static_cast<size_t>(n), nullptr, 0, 0, nullptr, 0, 0);
    }
    for (int i = 0; i < n; ++i)
        if (!std::isfinite(x[i]) || !std::isfinite(y[i]))
            return false;
    return true;
}

} // namespace tavru::shp
