#include "shell/copias.h"

#include "core/caminhos.h"
#include "core/config.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/runtime/shell.h"
#include "platform/ui/application.h"
#include "platform/ui/boxes.h"

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

/// A command: what is told first, what is asked, the batch file, what follows its start.
struct Copia {
    QStringView aviso;
    QStringView pergunta;
    QStringView arquivo;
    void (*depois)() = nullptr;
};

void anotaBackup()
{
    core::GravaINI(u"Config"_s, u"LastBackup"_s, runtime::Format(runtime::Now(), core::mascaraDataHora), true);
}

constexpr QStringView discoLimpo = u"Insira um Disco Limpo no drive A:";

constexpr Copia backupBanco{{}, discoLimpo, u"\\BACKUPDA.BAT", anotaBackup};
constexpr Copia backupFiguras{{}, discoLimpo, u"\\BACKUPFI.BAT"};
constexpr Copia restauracaoBanco{u"Para Restaurar o banco de dados, você dererá reiniciar o programa",
                                 u"Insira o disco com o backup do banco de dados no drive A:", u"\\RESTORDA.BAT",
                                 ui::End};
constexpr Copia restauracaoFiguras{{}, u"Insira o disco com o backup de figuras no drive A:", u"\\RESTORFI.BAT"};

void executa(const Copia &copia)
{
    if (!copia.aviso.isEmpty()) {
        ui::MsgBox(copia.aviso.toString(), ui::Icon::Information, core::NomeEmpresa);
    }
    if (!ui::ConfirmOk(copia.pergunta.toString(), ui::Icon::Exclamation, core::NomeEmpresa)) {
        return;
    }
    runtime::Shell(core::caminho(core::App::Path() + copia.arquivo));
    if (copia.depois != nullptr) {
        copia.depois();
    }
}

} // namespace

void FazBackupBanco()
{
    executa(backupBanco);
}

void FazBackupFiguras()
{
    executa(backupFiguras);
}

void RestauraBanco()
{
    executa(restauracaoBanco);
}

void RestauraFiguras()
{
    executa(restauracaoFiguras);
}

} // namespace shell
