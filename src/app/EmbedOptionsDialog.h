#pragma once

#include <QCoreApplication>
#include <QDialog>

#include <memory>

class CTSubtitleEmbedder;
class QPushButton;
class QTableWidget;

// The embedding options of one movie: one row per candidate track (the subtitle files
// beside the movie, the movie's own subtitle tracks, the chapter marks) with its language,
// where it comes from, its file or track, and whether it goes into the new movie; then
// "Embed" or "Cancel". Embed writes the check marks back into the embedder's rows; the
// caller starts the run. A movie has one list of chapters, so ticking one chapter row
// unticks the others.
class EmbedOptionsDialog final : public QDialog
{
    Q_DECLARE_TR_FUNCTIONS(EmbedOptionsDialog)

public:
    enum Column { IntegrateColumn, LanguageColumn, SourceColumn, LocationColumn, ColumnCount };

    EmbedOptionsDialog(std::shared_ptr<CTSubtitleEmbedder> embedder, QWidget *parent);

    const std::shared_ptr<CTSubtitleEmbedder> &embedder() const { return m_embedder; }
    QTableWidget *table() const { return m_table; }
    QPushButton *embedButton() const { return m_embed; }
    QPushButton *cancelButton() const { return m_cancel; }

    // The display text of a row's source ("external", "embedded").
    static QString sourceTitle(const QString &source);

private:
    void applyChecks();
    void rowToggled(int row);

    std::shared_ptr<CTSubtitleEmbedder> m_embedder;
    QTableWidget *m_table = nullptr;
    QPushButton *m_embed = nullptr;
    QPushButton *m_cancel = nullptr;
    bool m_filling = false;
};
