#include "shell/lembretes.h"

#include "core/config.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/forms.h"

#include <QApplication>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

constexpr int diasAntesEDepois = 15;

/// What falls due, each with the range in the place of %1.
constexpr auto consultas = std::to_array<QStringView>({
    u"SELECT Descricao, Valor, Vencimento FROM ContasPagar WHERE Vencimento BETWEEN %1 AND Pago = False",
    u"SELECT Descricao, Valor, Vencimento FROM ContasReceber WHERE Vencimento BETWEEN %1 AND Pago = False",
    u"SELECT Codigo, Valor, Vencimento FROM Cheques WHERE Vencimento BETWEEN %1 AND Pago = False",
    u"SELECT Clientes.Nome, Fiados.Valor, Fiados.Vencimento FROM Fiados, Clientes WHERE Fiados.Vencimento BETWEEN %1 "
    u"AND"
    u" Fiados.Pago = False AND Clientes.Codigo = Fiados.CodCliente",
});

bool temLinhas(const QString &consulta)
{
    return !core::DBDados->OpenRecordset(consulta).Eof();
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
    auto &janelas = ui::Forms::instance();
    const QString janela = u"frmInfoAviso"_s;
    if (!janelas.exists(janela) || core::Config(u"ExibeAviso"_s) != u"S") {
        return;
    }
    const auto agora = runtime::Now();
    const QString periodo = core::DataSQL(runtime::DateAdd(u"d", -diasAntesEDepois, agora), 4,
                                          runtime::DateAdd(u"d", diasAntesEDepois, agora));
    if (std::ranges::any_of(consultas, [&](QStringView texto) { return temLinhas(texto.toString().arg(periodo)); })) {
        QApplication::beep();
        janelas.Show(janela);
    }
}

} // namespace shell
