#include "tools/amostra/amostra.h"

#include "core/caminhos.h"
#include "core/esquema.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "shell/operadores.h"
#include "tools/amostra/cadastros.h"
#include "tools/amostra/orcamentos.h"
#include "tools/amostra/ordens.h"
#include "tools/amostra/origens.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

constexpr int chamadaInvalida = 5;

[[noreturn]] void recusa(const QString &motivo)
{
    throw runtime::RuntimeError(chamadaInvalida, motivo);
}

/// The program's clock, which every record is dated by, moves through the years and is put back.
class Relogio
{
public:
    explicit Relogio(std::optional<runtime::Date> depois) : depois_(depois) { runtime::setClock(depois); }
    ~Relogio() { runtime::setClock(depois_); }
    Relogio(const Relogio &) = delete;
    Relogio &operator=(const Relogio &) = delete;

private:
    std::optional<runtime::Date> depois_;
};

bool temClientes()
{
    return !core::DBDados->OpenRecordset(u"Clientes"_s).Eof();
}

void recusaComClientes()
{
    if (temClientes()) {
        recusa(u"O banco de dados já tem clientes: "_s + core::DBDados->path());
    }
}

void semAviso(const QString &etapa, int feitos, int total)
{
    Q_UNUSED(etapa)
    Q_UNUSED(feitos)
    Q_UNUSED(total)
}

Resumo enche(Oficina &oficina, const Progresso &progresso)
{
    Resumo resumo;
    const dao::Unit lote;
    runtime::setClock(runtime::Date{oficina.hoje.serial - diasDeCadastro});
    if (!shell::haOperadores()) {
        IncluiOperadores();
        resumo.operadores = static_cast<int>(Operadores().size());
    }
    IncluiListas();
    resumo.fornecedores = IncluiFornecedores(oficina);
    IncluiItens(oficina, resumo);
    IncluiClientes(oficina, resumo, progresso);
    IncluiOrdens(oficina, resumo, progresso);
    IncluiOrcamentos(oficina, resumo, progresso);
    core::CriaLivroOrigem(recusa); // whatever the installation's code is: its rows wait for the one that shows them
    resumo.origens = IncluiOrigens(oficina);
    return resumo;
}

} // namespace

int OrdensPorMes(int ordens)
{
    return std::max(1, ordens / mesesDeOrdens);
}

bool PrimeiraSemanaDoMes()
{
    constexpr int diasDaSemana = 7;
    return runtime::toDateTime(runtime::Today()).date().day() <= diasDaSemana;
}

QString Reais(qint64 centavos)
{
    return runtime::Format(static_cast<double>(centavos) / 100, core::mascaraValor);
}

void AbrePasta(const QString &pasta)
{
    if (pasta.isEmpty() || !QDir().mkpath(pasta + u"/DADOS"_s)) {
        recusa(u"A pasta não pôde ser criada: "_s + pasta);
    }
    if (const QString defeito = core::defeitoDaPasta(QDir(pasta).absolutePath()); !defeito.isEmpty()) {
        recusa(defeito);
    }
    core::App::setPath(QDir(pasta).absolutePath());
    core::ArquivoINI = core::App::Path() + u"\\config.ini"_s;
    core::ArquivoDB = core::App::Path() + u"\\DADOS\\DADOS.MDB"_s;
    core::AbreOuCriaBanco(recusa);
    core::CriarDB(recusa);
    recusaComClientes();
}

void ConfereTamanho(const Tamanho &tamanho)
{
    if (tamanho.clientes < menosClientes || tamanho.clientes > maisClientes) {
        recusa(u"O número de clientes vai de %1 a %2."_s.arg(menosClientes).arg(maisClientes));
    }
}

Resumo Preenche(const Tamanho &tamanho, const Progresso &progresso)
{
    ConfereTamanho(tamanho);
    recusaComClientes();
    const Relogio relogio(tamanho.relogio);
    Oficina oficina;
    oficina.tamanho = tamanho;
    oficina.hoje = runtime::Today();
    return enche(oficina, progresso ? progresso : semAviso);
}

} // namespace amostra
