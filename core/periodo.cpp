#include "core/periodo.h"

#include "core/funcoes.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/controls.h"

namespace core
{

using namespace Qt::StringLiterals;
using runtime::DateAdd;

namespace
{

constexpr int intervalo = 4; ///< of `DataSQL`

ui::DTPicker &data(const QWidget &janela, const QString &nome)
{
    auto *achada = janela.findChild<ui::DTPicker *>(nome);
    Q_ASSERT_X(achada, "Periodo", qPrintable(nome));
    return *achada;
}

QString textoDe(const QWidget &janela, const QString &nome)
{
    return data(janela, nome).date().toString(u"dd/MM/yyyy"_s);
}

} // namespace

void AbrePeriodo(const QWidget &janela, const Periodo &periodo)
{
    const runtime::Date inicio =
        DateAdd(u"d", -periodo.diasAntes, DateAdd(u"m", -periodo.mesesAntes, runtime::Today()));
    data(janela, u"txtDataInicio"_s).setDate(runtime::toDateTime(inicio).date());
    data(janela, u"txtDataFim"_s)
        .setDate(runtime::toDateTime(DateAdd(u"d", periodo.diasDepois, runtime::Today())).date());
}

QString PeriodoSQL(const QWidget &janela)
{
    return DataSQL(textoDe(janela, u"txtDataInicio"_s), intervalo, textoDe(janela, u"txtDataFim"_s));
}

} // namespace core
