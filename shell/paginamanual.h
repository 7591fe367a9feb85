#pragma once

#include <QTextBrowser>

namespace shell
{

/// The user's manual, one file with its pictures inside. It is shown in colours of the program's own, light or dark;
/// nothing besides that file is ever read, from the disk or from a net. Its links are followed by the mouse, or chosen
/// by Ctrl and the arrows up and down and followed by Enter. Alt and the left arrow go back.
class PaginaManual : public QTextBrowser
{
    Q_OBJECT

public:
    explicit PaginaManual(QWidget *parent = nullptr);

    /// Shows the section of a file that has this anchor; the top where there is none. To be called on a visible window,
    /// as the place depends on its width.
    void mostra(const QString &arquivo, const QString &secao);

    /// Goes to the next place of a text, without regard to case and accents; behind the last one to the first.
    /// False for none.
    bool localiza(const QString &texto);

    /// Follows the link that is chosen, or the one that a text was found in. False where there is none.
    bool segueElo();

    QVariant loadResource(int type, const QUrl &name) override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void escolhe(int inicio, int fim);
    void escolheElo(bool seguinte);
    void segue(const QUrl &elo);
    void vaiPara(const QUrl &endereco);
    int lugarDe(const QString &ancora) const;
    QTextCursor lugarDoTeclado(bool seguinte) const;
};

} // namespace shell
