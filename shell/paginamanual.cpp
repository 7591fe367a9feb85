#include "shell/paginamanual.h"

#include "platform/ui/style.h"

#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QTextBlock>

#include <algorithm>
#include <iterator>
#include <vector>

namespace shell
{

using namespace Qt::StringLiterals;

namespace
{

/// The file's own style is for browsers, which know more of it and other palettes.
QString semEstilo(QString html)
{
    const qsizetype inicio = html.indexOf(u"<style"_s);
    const QString marca = u"</style>"_s;
    const qsizetype fim = html.indexOf(marca, inicio);
    return inicio < 0 || fim < 0 ? html : html.remove(inicio, fim + marca.size() - inicio);
}

/// The links of a palette are those of a light desktop more often than not.
QString estilo(const QPalette &paleta)
{
    const bool escura = ui::isDark(paleta);
    const QString elo = escura ? u"#6cb6f0"_s : u"#0b57a4"_s;
    const QString traco = escura ? u"#6b7178"_s : u"#b4bac0"_s;
    return u"a { color: %1; } "
           u"h1, h2, h3 { margin-top: 18px; margin-bottom: 6px; } "
           u"p, ul, ol, table { margin-top: 6px; margin-bottom: 6px; } "
           u"table { border-collapse: collapse; border: 1px solid %2; } "
           u"th, td { border: 1px solid %2; padding: 4px 8px; } "
           u"th { text-align: left; background-color: %3; }"_s.arg(elo, traco, paleta.color(QPalette::Window).name());
}

QImage vazia()
{
    QImage ponto(1, 1, QImage::Format_ARGB32);
    ponto.fill(Qt::transparent);
    return ponto;
}

QString lido(const QString &arquivo)
{
    QFile manual(arquivo);
    return manual.open(QIODevice::ReadOnly) ? QString::fromUtf8(manual.readAll()) : QString();
}

struct Elo {
    int inicio;
    int fim;
    QString endereco;
};

/// The links of a page in their order. A word in other letters inside of one parts it into pieces that stand side by
/// side.
std::vector<Elo> elosDe(const QTextDocument &pagina)
{
    std::vector<Elo> elos;
    for (QTextBlock bloco = pagina.begin(); bloco.isValid(); bloco = bloco.next()) {
        for (auto pedaco = bloco.begin(); !pedaco.atEnd(); ++pedaco) {
            const QTextFragment trecho = pedaco.fragment();
            const QString endereco = trecho.charFormat().anchorHref();
            if (endereco.isEmpty()) {
                continue;
            }
            const int inicio = trecho.position();
            if (!elos.empty() && elos.back().fim == inicio && elos.back().endereco == endereco) {
                elos.back().fim += trecho.length();
            } else {
                elos.push_back({inicio, inicio + trecho.length(), endereco});
            }
        }
    }
    return elos;
}

/// The same text letter for letter, as somebody types it who leaves the accents out.
QString simples(const QString &texto)
{
    QString letras = texto;
    for (QChar &letra : letras) {
        if (letra == QChar::Nbsp) {
            letra = u' ';
        } else if (letra.decompositionTag() == QChar::Canonical) {
            letra = letra.decomposition().front();
        }
    }
    return letras;
}

} // namespace

PaginaManual::PaginaManual(QWidget *parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    // Its links are no stops of Tab: there are too many of them for a way through the window.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse);
    connect(this, &QTextBrowser::anchorClicked, this, &PaginaManual::segue);
}

void PaginaManual::mostra(const QString &arquivo, const QString &secao)
{
    QUrl endereco = QUrl::fromLocalFile(arquivo);
    if (!endereco.matches(source(), QUrl::RemoveFragment)) {
        document()->setDefaultStyleSheet(estilo(palette()));
        setSource(endereco, QTextDocument::HtmlResource);
    }
    if (lugarDe(secao) > 0) {
        endereco.setFragment(secao);
    }
    vaiPara(endereco);
}

/// Setting the source to another place of the same file scrolls and keeps the way back.
void PaginaManual::vaiPara(const QUrl &endereco)
{
    setSource(endereco, QTextDocument::HtmlResource);
    document()->size(); // lays out the whole page: half of it has its end, for the key of that name, in the middle
    QTextCursor cursor(document());
    cursor.setPosition(lugarDe(endereco.fragment(QUrl::FullyDecoded)));
    setTextCursor(cursor); // what is searched next is searched from here on
}

/// The file has no other links than those to its own sections; one that leads out of it leads nowhere.
void PaginaManual::segue(const QUrl &elo)
{
    const bool daqui = elo.matches(source(), QUrl::RemoveFragment);
    if (daqui && (!elo.hasFragment() || lugarDe(elo.fragment(QUrl::FullyDecoded)) > 0)) {
        vaiPara(elo);
    }
}

/// 0, the top, for an anchor that is not there.
int PaginaManual::lugarDe(const QString &ancora) const
{
    if (ancora.isEmpty()) {
        return 0;
    }
    for (QTextBlock bloco = document()->begin(); bloco.isValid(); bloco = bloco.next()) {
        for (auto trecho = bloco.begin(); !trecho.atEnd(); ++trecho) {
            if (trecho.fragment().charFormat().anchorNames().contains(ancora)) {
                return trecho.fragment().position();
            }
        }
    }
    return 0;
}

bool PaginaManual::localiza(const QString &texto)
{
    const QString pagina = simples(document()->toRawText());
    const QString procurado = simples(texto);
    qsizetype lugar = pagina.indexOf(procurado, textCursor().selectionEnd(), Qt::CaseInsensitive);
    if (lugar < 0) {
        lugar = pagina.indexOf(procurado, 0, Qt::CaseInsensitive);
    }
    if (lugar < 0) {
        return false;
    }
    escolhe(static_cast<int>(lugar), static_cast<int>(lugar + procurado.size()));
    return true;
}

/// Where the keyboard stands on the page: at the last place it came to, while that is in sight.
QTextCursor PaginaManual::lugarDoTeclado(bool seguinte) const
{
    const QRect vista = viewport()->rect();
    if (vista.intersects(cursorRect())) {
        return textCursor();
    }
    return cursorForPosition(seguinte ? vista.topLeft() : vista.bottomRight());
}

void PaginaManual::escolhe(int inicio, int fim)
{
    QTextCursor cursor(document());
    cursor.setPosition(inicio);
    cursor.setPosition(fim, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

/// The next link of the page, or the one before; there is no way round its ends.
void PaginaManual::escolheElo(bool seguinte)
{
    const std::vector<Elo> elos = elosDe(*document());
    const QTextCursor lugar = lugarDoTeclado(seguinte);
    const auto depois = std::ranges::find_if(elos, [&](const Elo &elo) {
        return seguinte ? elo.inicio >= lugar.selectionEnd() : elo.fim > lugar.selectionStart();
    });
    if (seguinte && depois != elos.end()) {
        escolhe(depois->inicio, depois->fim);
    } else if (!seguinte && depois != elos.begin()) {
        escolhe(std::prev(depois)->inicio, std::prev(depois)->fim);
    }
}

bool PaginaManual::segueElo()
{
    const QTextCursor cursor = textCursor();
    const QString endereco = cursor.hasSelection() ? cursor.charFormat().anchorHref() : QString();
    if (endereco.isEmpty()) {
        return false;
    }
    segue(source().resolved(QUrl(endereco)));
    return true;
}

void PaginaManual::keyPressEvent(QKeyEvent *event)
{
    const bool seta = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (seta && event->modifiers() == Qt::ControlModifier) {
        escolheElo(event->key() == Qt::Key_Down);
    } else {
        QTextBrowser::keyPressEvent(event);
    }
}

QVariant PaginaManual::loadResource(int type, const QUrl &name)
{
    if (type == QTextDocument::HtmlResource && name.isLocalFile()) {
        return semEstilo(lido(name.toLocalFile()));
    }
    if (name.scheme() == u"data") {
        return {}; // inside the file: the document reads it by itself
    }
    return vazia(); // for nothing at all Qt would look beside the file
}

} // namespace shell
