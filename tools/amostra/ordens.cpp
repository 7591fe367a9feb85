#include "tools/amostra/ordens.h"

#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "tools/amostra/acertos.h"
#include "tools/amostra/compras.h"
#include "tools/amostra/conteudo.h"
#include "tools/amostra/pagamento.h"
#include "workorders/fechamento.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

constexpr int menosOrdens = 24;
constexpr int maisOrdens = 20'000;
constexpr int diasUteis = diasDeOrdens / 7 * 6; ///< Sundays are closed
constexpr int diasDeAberta = 12;                ///< how long an order of the last days may still be open
constexpr int diasDaUltima = 8; ///< the last order of each form is so fresh that something is still owed
constexpr int minutosDoDia = 24 * 60;

int quantasAbertas(int ordens)
{
    return std::clamp(ordens * 4 / 100, 3, 60);
}

enum class Fato { Abre, Fecha, Acerta };

/// What happens, and in which minute of the open days.
struct Evento {
    int minuto = 0;
    Fato fato = Fato::Abre;
    std::size_t ordem = 0;
};

struct OrdemPlanejada {
    workorders::FormaPagamento forma = workorders::FormaPagamento::AVista;
    workorders::NovaOrdem conteudo;
    qint32 codigo = 0;
};

class Historia
{
public:
    Historia(const Oficina &oficina, int ordens)
        : oficina_(oficina), dias_(DiasAbertos(oficina.hoje)), planejadas_(static_cast<std::size_t>(ordens)),
          quando_(oficina.tamanho.semente, sobreOrdens), conteudo_(oficina.tamanho.semente, sobreConteudo),
          pagamento_(oficina.tamanho.semente, sobrePagamento), acertos_(oficina, ordens), compras_(oficina, ordens)
    {
        planeja();
    }

    void conta(const Progresso &progresso);
    int notas() const { return compras_.notas(); }

private:
    void planeja();
    void planejaFechada(std::size_t ordem);
    void planejaAberta(std::size_t ordem);
    int minutoEm(int dia);
    void acontece(const Evento &evento);
    void abre(OrdemPlanejada &ordem, int dia);
    void fecha(const OrdemPlanejada &ordem);

    const Oficina &oficina_;
    std::vector<runtime::Date> dias_;
    std::vector<OrdemPlanejada> planejadas_;
    std::vector<Evento> eventos_;
    std::set<workorders::FormaPagamento> comUltima_; ///< the forms whose last order is planned
    Sorteio quando_;
    Sorteio conteudo_;
    Sorteio pagamento_;
    Acertos acertos_;
    Compras compras_;
};

/// Between eight and six.
int Historia::minutoEm(int dia)
{
    return dia * minutosDoDia + quando_.entre(8 * 60, 18 * 60 - 1);
}

void Historia::planejaFechada(std::size_t ordem)
{
    const bool ultima = comUltima_.insert(planejadas_[ordem].forma).second;
    const int dia = quando_.entre(ultima ? diasUteis - diasDaUltima : 0, diasUteis - 2);
    const int dias = quando_.entre(0, 5);
    const int abertura = minutoEm(dia);
    const int fechamento = std::max(abertura + 30, minutoEm(std::min(dia + dias, diasUteis - 1)));
    eventos_.push_back({abertura, Fato::Abre, ordem});
    eventos_.push_back({fechamento, Fato::Fecha, ordem});
}

void Historia::planejaAberta(std::size_t ordem)
{
    const int dia = quando_.entre(diasUteis - diasDeAberta, diasUteis - 1);
    eventos_.push_back({minutoEm(dia), Fato::Abre, ordem});
}

void Historia::planeja()
{
    const int ordens = static_cast<int>(planejadas_.size());
    const auto formas = FormasSorteadas(ordens - quantasAbertas(ordens), quando_);
    for (std::size_t i = 0; i < planejadas_.size(); ++i) {
        if (i < formas.size()) {
            planejadas_[i].forma = formas[i];
            planejaFechada(i);
        } else {
            planejaAberta(i);
        }
    }
    for (int sabado = 5; sabado < diasUteis; sabado += 6) {
        eventos_.push_back({sabado * minutosDoDia + 19 * 60, Fato::Acerta, 0});
    }
    std::ranges::stable_sort(eventos_, {}, &Evento::minuto);
}

/// The customer who comes is any of those who were registered by that day.
void Historia::abre(OrdemPlanejada &ordem, int dia)
{
    const double antes = oficina_.hoje.serial - dias_[static_cast<std::size_t>(dia)].serial;
    const int veiculos = oficina_.veiculosAteODia[static_cast<std::size_t>(antes)];
    const auto qual = static_cast<std::size_t>(conteudo_.abaixo(static_cast<quint64>(veiculos)));
    ordem.conteudo = NovaOrdemPara(oficina_.veiculos[qual], oficina_, conteudo_);
    ordem.codigo = workorders::AbreOrdem(ordem.conteudo);
}

void Historia::fecha(const OrdemPlanejada &ordem)
{
    workorders::FechaOrdem(FechamentoDe(ordem.conteudo, ordem.codigo, ordem.forma, pagamento_));
    compras_.repoeEstoque(ordem.conteudo.itens);
}

void Historia::acontece(const Evento &evento)
{
    const int dia = evento.minuto / minutosDoDia;
    const double hora = static_cast<double>(evento.minuto % minutosDoDia) / minutosDoDia;
    runtime::setClock(runtime::Date{dias_[static_cast<std::size_t>(dia)].serial + hora});
    switch (evento.fato) {
    case Fato::Abre:
        abre(planejadas_[evento.ordem], dia);
        break;
    case Fato::Fecha:
        fecha(planejadas_[evento.ordem]);
        break;
    case Fato::Acerta:
        acertos_.daSemana();
        compras_.daSemana();
        break;
    }
}

void Historia::conta(const Progresso &progresso)
{
    int feitos = 0;
    const int total = static_cast<int>(eventos_.size());
    for (const Evento &evento : eventos_) {
        acontece(evento);
        progresso(u"Ordens de serviço"_s, ++feitos, total);
    }
}

} // namespace

std::vector<runtime::Date> DiasAbertos(runtime::Date hoje)
{
    std::vector<runtime::Date> dias;
    for (int antes = diasDeOrdens; antes > 0; --antes) {
        const runtime::Date dia{hoje.serial - antes};
        if (runtime::toDateTime(dia).date().dayOfWeek() != Qt::Sunday) {
            dias.push_back(dia);
        }
    }
    return dias;
}

int QuantasOrdens(int clientes)
{
    return std::clamp(clientes / 3, menosOrdens, maisOrdens);
}

void IncluiOrdens(const Oficina &oficina, Resumo &resumo, const Progresso &progresso)
{
    resumo.ordens = QuantasOrdens(oficina.tamanho.clientes);
    resumo.ordensAbertas = quantasAbertas(resumo.ordens);
    Historia historia(oficina, resumo.ordens);
    historia.conta(progresso);
    resumo.notas = historia.notas();
}

} // namespace amostra
