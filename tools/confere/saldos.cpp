#include "core/funcoes.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"
#include "tools/confere/conferencia.h"
#include "tools/confere/razao.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace confere
{

namespace
{

/// A ledger as the checks see it.
struct Livro {
    core::Razao razao;
    QStringView nome;
    QStringView dono; ///< what its owner is called
    QStringView mascara;
    TipoDeRazao tipo;
};

constexpr QStringView deDinheiro = u"#,##0.00";
constexpr QStringView deEstoque = u"#,##0.###";

const std::vector<Livro> livros{
    {core::razaoCaixa, u"Saldos do Livro Caixa", u"", deDinheiro, TipoDeRazao::Recalculado},
    {core::razaoBanco1, u"Saldos do Banco 01", u"", deDinheiro, TipoDeRazao::Recalculado},
    {core::razaoBanco2, u"Saldos do Banco 02", u"", deDinheiro, TipoDeRazao::Recalculado},
    {core::razaoContaFiado, u"Saldos das contas dos clientes", u"cliente", deDinheiro, TipoDeRazao::Recalculado},
    {core::razaoEstoque, u"Saldos do estoque", u"peça", deEstoque, TipoDeRazao::SoLancado},
};

QStringList colunasDe(const Livro &livro)
{
    QStringList colunas{u"Codigo"_s, u"Data"_s, u"Entrada"_s, u"Saida"_s, livro.razao.saldo.toString()};
    if (!livro.razao.dono.isEmpty()) {
        colunas.append(livro.razao.dono.toString());
    }
    return colunas;
}

std::optional<float> lado(const runtime::Value &valor)
{
    return runtime::IsNull(valor) ? std::nullopt : std::optional(runtime::CSng(valor));
}

constexpr double semData = -1e9;
constexpr int estouro = 6;

/// Nothing for a number that is no day, which another program can leave.
std::optional<double> dia(const dao::Recordset &linha, int lugar)
{
    try {
        const runtime::Value valor = linha.value(lugar);
        return runtime::IsNull(valor) ? semData : runtime::CDate(valor).serial;
    } catch (const runtime::RuntimeError &erro) {
        if (erro.number() != estouro) {
            throw;
        }
        return std::nullopt;
    }
}

/// Balances of one ledger by owner; all under one where it has none.
using PorDono = std::map<qint64, std::vector<LinhaDoRazao>>;

PorDono leLivro(Banco &banco, const Livro &livro, Achados &achados)
{
    PorDono donos;
    const bool temDono = !livro.razao.dono.isEmpty();
    banco.paraCada(livro.razao.tabela, colunasDe(livro), [&](const dao::Recordset &linha) {
        achados.conta();
        const std::optional<double> data = dia(linha, 1);
        const qint64 codigo = Codigo(linha.value(0)).value_or(0);
        if (!data) {
            achados.acha(NomeDaLinha(livro.razao.tabela, codigo) + u" tem uma data que não existe."_s);
        }
        donos[temDono ? Codigo(linha.value(5)).value_or(0) : 0].push_back({.codigo = codigo,
                                                                           .data = data.value_or(semData),
                                                                           .entrada = lado(linha.value(2)),
                                                                           .saida = lado(linha.value(3)),
                                                                           .saldo = lado(linha.value(4))});
    });
    for (auto &[dono, linhas] : donos) {
        std::stable_sort(linhas.begin(), linhas.end(),
                         [](const LinhaDoRazao &uma, const LinhaDoRazao &outra) { return uma.codigo < outra.codigo; });
    }
    return donos;
}

/// Writes the findings of one ledger of one owner.
class Relator
{
public:
    Relator(const Livro &livro, qint64 dono, const std::vector<LinhaDoRazao> &linhas, Achados &achados)
        : livro_(livro), dono_(dono), linhas_(linhas), achados_(achados)
    {
    }

    void lados(const LinhaDoRazao &linha) const
    {
        if (!linha.entrada && !linha.saida) {
            achados_.acha(nome(linha) + u" não tem Entrada nem Saída."_s);
        } else if (linha.entrada && linha.saida && livro_.tipo == TipoDeRazao::Recalculado) {
            achados_.acha(nome(linha) + u" tem Entrada (%1) e Saída (%2); só pode ter uma das duas."_s.arg(
                                            texto(*linha.entrada), texto(*linha.saida)));
        }
    }

    void desacordo(const Desacordo &desacordo) const
    {
        const LinhaDoRazao &linha = linhas_[desacordo.linha];
        const QString porque = explica(linha, desacordo.anterior);
        if (!linha.saldo) {
            achados_.acha(nome(linha) + u" não tem saldo; %1 %2."_s.arg(porque, texto(desacordo.esperado)));
            return;
        }
        // What differs in its last digits only is shown with all of them.
        const bool iguais = texto(*linha.saldo) == texto(desacordo.esperado);
        achados_.acha(nome(linha) + u" tem o saldo %1, mas %2 %3."_s.arg(
                                        iguais ? exato(*linha.saldo) : texto(*linha.saldo), porque,
                                        iguais ? exato(desacordo.esperado) : texto(desacordo.esperado)));
    }

private:
    QString texto(float valor) const
    {
        const QString texto = runtime::Format(valor, livro_.mascara);
        return texto.endsWith(u',') ? texto.chopped(1) : texto; // what the mask leaves of a whole number
    }
    static QString exato(float valor)
    {
        constexpr int todosOsDigitos = 9;
        return QString::number(double{valor}, 'g', todosOsDigitos).replace(u'.', u',');
    }

    QString nome(const LinhaDoRazao &linha) const
    {
        QString nome = NomeDaLinha(livro_.razao.tabela, linha.codigo);
        if (linha.data > semData) {
            nome += u" de "_s + runtime::Format(runtime::Date{linha.data}, core::mascaraData);
        }
        return livro_.dono.isEmpty() ? nome : nome + u", %1 %2,"_s.arg(livro_.dono, TextoDoCodigo(dono_));
    }

    QString movimento(const LinhaDoRazao &linha) const
    {
        if (linha.entrada) {
            return u"a entrada de "_s + texto(*linha.entrada);
        }
        return linha.saida ? u"a saída de "_s + texto(*linha.saida) : u"nenhum movimento"_s;
    }

    /// What leads to the balance that follows: "200,00 (código 0003) com a entrada de 10,00 dá".
    QString explica(const LinhaDoRazao &linha, std::optional<size_t> anterior) const
    {
        if (livro_.tipo == TipoDeRazao::SoLancado && linha.entrada && linha.saida) {
            return u"a conferência contou"_s;
        }
        if (!anterior) {
            return u"a primeira linha, com %1, dá"_s.arg(movimento(linha));
        }
        const LinhaDoRazao &antes = linhas_[*anterior];
        const QString saldo = antes.saldo ? texto(*antes.saldo) : u"o saldo que falta"_s;
        return u"%1 (código %2) com %3 dá"_s.arg(saldo, TextoDoCodigo(antes.codigo), movimento(linha));
    }

    const Livro &livro_;
    qint64 dono_;
    const std::vector<LinhaDoRazao> &linhas_;
    Achados &achados_;
};

void confereLivro(const Livro &livro, Banco &banco, Achados &achados)
{
    for (const auto &[dono, linhas] : leLivro(banco, livro, achados)) {
        const Relator relator(livro, dono, linhas, achados);
        for (const LinhaDoRazao &linha : linhas) {
            relator.lados(linha);
        }
        for (const Desacordo &desacordo : Desacordos(linhas, livro.tipo)) {
            relator.desacordo(desacordo);
        }
    }
}

} // namespace

std::vector<Conferencia> ConferenciasDosSaldos()
{
    std::vector<Conferencia> conferencias;
    conferencias.reserve(livros.size());
    for (const Livro &livro : livros) {
        const bool recalculado = livro.tipo == TipoDeRazao::Recalculado;
        conferencias.push_back(
            {.nome = livro.nome.toString(),
             .pergunta = recalculado ? u"cada saldo segue do anterior, na ordem das datas até o último recálculo e na "
                                       "ordem dos lançamentos daí em diante; cada linha tem Entrada ou Saída"_s
                                     : u"cada saldo segue do anterior da mesma peça, na ordem dos lançamentos; uma "
                                       "conferência fixa o saldo"_s,
             .precisa = {{livro.razao.tabela, colunasDe(livro)}},
             .confere = [&livro](Banco &banco, Achados &achados) { confereLivro(livro, banco, achados); }});
    }
    return conferencias;
}

} // namespace confere
