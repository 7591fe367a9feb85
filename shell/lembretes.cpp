#include "shell/lembretes.h"

#include "core/config.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/forms.h"
#include "shell/passos.h"
#include "shell/vencimentos.h"

#include <QApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

/// One that can't be asked finds nothing, and the next one is asked all the same.
bool temLinhas(const QString &consulta)
{
    bool tem = false;
    passaErros([&] { tem = !core::DBDados->OpenRecordset(consulta).Eof(); });
    return tem;
}

} // namespace

QString UltimoBackup()
{
    return runtime::Format(core::Config(u"LastBackup"_s), core::mascaraDataHora);
}

void LembraBackup()
{
    if (core::Config(u"AvisaBackup"_s) != u"S") {
        return;
    }
    const auto dias = runtime::DateDiff(u"d", runtime::CDate(core::Config(u"LastBackup"_s)), runtime::Now());
    if (dias >= runtime::Val(core::Config(u"BackupDias"_s))) {
        ui::MsgBox(u"Por favor, realize um backup do sistema, última base de dados salva em\n%1 - %2 dias atrás."_s.arg(
                       UltimoBackup(), QString::number(dias)),
                   ui::Icon::Information);
    }
}

void AvisaVencimentos()
{
    if (core::Config(u"ExibeAviso"_s) != u"S") {
        return;
    }
    const PeriodoDosAvisos periodo = PeriodoAtual();
    if (std::ranges::any_of(vencimentos, [&](Vencimento qual) { return temLinhas(ConsultaDe(qual, periodo)); })) {
        QApplication::beep();
        ui::Forms::instance().Show(u"frmInfoAviso"_s);
    }
}

} // namespace shell
