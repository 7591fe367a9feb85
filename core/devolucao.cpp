#include "core/devolucao.h"

#include "core/icones.h"
#include "core/janelas.h"
#include "core/modos.h"
#include "core/modulo.h"

#include <QHash>

namespace core
{

namespace
{

QHash<QString, std::vector<Devolucoes>> &registradas()
{
    static QHash<QString, std::vector<Devolucoes>> porJanela;
    return porJanela;
}

std::vector<Devolucao> linhasDe(const ui::Form &janela, Ocasiao ocasiao)
{
    std::vector<Devolucao> linhas;
    for (const Devolucoes &devolucoes : DevolucoesDe(janela.objectName())) {
        if (devolucoes.ocasiao == ocasiao) {
            linhas.insert(linhas.end(), devolucoes.linhas.begin(), devolucoes.linhas.end());
        }
    }
    return linhas;
}

void escreve(const ui::Form &janela, const Devolucao &linha, const QString &codigo)
{
    auto &janelas = ui::Forms::instance();
    const QString outra = linha.janela.toString();
    if (!janelas.exists(outra)) {
        return;
    }
    const auto *origem =
        linha.origem.isEmpty() ? nullptr : janelas.control(janela.objectName(), linha.origem.toString());
    auto *alvo = janelas.control(outra, linha.controle.toString());
    if (linha.comTag) {
        ui::setTagOf(alvo, ui::tagOf(origem));
    }
    ui::setTextOf(alvo, origem != nullptr ? ui::textOf(origem) : codigo);
}

/// Brings the caller to the front, with the focus in its control.
void foca(const Devolucao &linha)
{
    auto &janelas = ui::Forms::instance();
    const QString outra = linha.janela.toString();
    if (janelas.exists(outra)) {
        auto *alvo = janelas.control(outra, (linha.foco.isEmpty() ? linha.controle : linha.foco).toString());
        janelas.bringToFront(outra);
        SelecionaTexto(alvo);
    }
}

} // namespace

void RegistraJanela(const QString &nome, const ui::Forms::Factory &fabrica, const std::vector<Devolucoes> &devolucoes)
{
    registradas().insert(nome, devolucoes);
    ui::Forms::instance().add(nome, [fabrica] {
        ui::Form *janela = fabrica();
        PoeIcones(*janela);
        return janela;
    });
}

const std::vector<Devolucoes> &DevolucoesDe(const QString &janela)
{
    static const std::vector<Devolucoes> nenhuma;
    const auto achadas = registradas().constFind(janela);
    return achadas == registradas().constEnd() ? nenhuma : *achadas;
}

bool Devolve(ui::Form &janela, Ocasiao ocasiao, const QString &codigo)
{
    std::vector<Devolucao> linhas = linhasDe(janela, ocasiao);
    std::erase_if(linhas, [](const Devolucao &linha) { return linha.modo != modoNormal && linha.modo != ModoChamada; });
    if (linhas.empty()) {
        return false;
    }
    for (const Devolucao &linha : linhas) {
        escreve(janela, linha, codigo);
    }
    // A caller that names a control of its own for the focus has it before this window goes.
    const Devolucao &ultima = linhas.back();
    if (!ultima.foco.isEmpty()) {
        foca(ultima);
        janela.Unload();
        return true;
    }
    janela.Unload();
    foca(ultima);
    return true;
}

void Preenche(const ui::Form &janela, const QString &outra, const QString &codigo)
{
    Preenche(janela, outra, [&](QStringView /*controle*/) { return codigo; });
}

void Preenche(const ui::Form &janela, const QString &outra, const std::function<QString(QStringView controle)> &texto)
{
    for (const Devolucao &linha : linhasDe(janela, Ocasiao::Preenchimento)) {
        if (linha.janela == outra) {
            escreve(janela, linha, linha.origem.isEmpty() ? texto(linha.controle) : QString());
        }
    }
}

void Chama(const QString &janela, qint16 modo)
{
    ui::leaveField();
    ModoChamada = modo;
    ui::Forms::instance().Show(janela);
}

} // namespace core
