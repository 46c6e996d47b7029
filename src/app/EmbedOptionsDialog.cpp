#include "EmbedOptionsDialog.h"

#include "CTSubtitleEmbedder.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

EmbedOptionsDialog::EmbedOptionsDialog(std::shared_ptr<CTSubtitleEmbedder> embedder, QWidget *parent)
    : QDialog(parent)
    , m_embedder(std::move(embedder))
{
    const QFileInfo movie(m_embedder->moviePath());
    setWindowTitle(tr("Embedding Options"));
    auto *layout = new QVBoxLayout(this);
    auto *heading = new QLabel(tr("Embed Subtitles into “%1”").arg(movie.completeBaseName()), this);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    layout->addWidget(heading);
    auto *explanation =
        new QLabel(tr("The ticked tracks go into a new movie, “%1”, with the movie's picture and sound. When "
                      "it is complete it takes the movie's place, and the original movie is kept beside it.")
                       .arg(QFileInfo(m_embedder->outputMoviePath()).fileName()),
                   this);
    explanation->setWordWrap(true);
    layout->addWidget(explanation);

    const QList<CandidateRow> &rows = m_embedder->subtitles();
    m_table = new QTableWidget(int(rows.size()), ColumnCount, this);
    m_table->setHorizontalHeaderLabels({tr("Embed"), tr("Language"), tr("Source"), tr("Location")});
    m_table->verticalHeader()->hide();
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->horizontalHeader()->setSectionResizeMode(LocationColumn, QHeaderView::Stretch);
    m_filling = true;
    for (int i = 0; i < rows.size(); ++i) {
        const CandidateRow &row = rows[i];
        auto *check = new QTableWidgetItem;
        check->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        check->setCheckState(row.integrate ? Qt::Checked : Qt::Unchecked);
        m_table->setItem(i, IntegrateColumn, check);
        // "Chapter Marks" is the row's language text; it is shown in the interface language.
        m_table->setItem(i, LanguageColumn,
                         new QTableWidgetItem(row.isSubtitle ? row.language : tr("Chapter Marks")));
        m_table->setItem(i, SourceColumn, new QTableWidgetItem(sourceTitle(row.source)));
        auto *location = new QTableWidgetItem(row.location);
        if (!row.path.isEmpty())
            location->setToolTip(row.path);
        m_table->setItem(i, LocationColumn, location);
    }
    m_filling = false;
    m_table->resizeColumnsToContents();
    m_table->horizontalHeader()->setSectionResizeMode(LocationColumn, QHeaderView::Stretch);
    connect(m_table, &QTableWidget::itemChanged, this, [this](QTableWidgetItem *item) {
        if (!m_filling && item->column() == IntegrateColumn)
            rowToggled(item->row());
    });
    layout->addWidget(m_table, 1);
    if (rows.isEmpty())
        layout->addWidget(
            new QLabel(tr("There are no subtitle files beside the movie and no text tracks in it."), this));

    auto *buttons = new QDialogButtonBox(this);
    m_embed = buttons->addButton(tr("Embed"), QDialogButtonBox::AcceptRole);
    m_cancel = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    m_embed->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        applyChecks();
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(620, 360);
}

QString EmbedOptionsDialog::sourceTitle(const QString &source)
{
    if (source == u"external"_s)
        return tr("File beside the movie");
    if (source == u"embedded"_s)
        return tr("Track in the movie");
    return source;
}

void EmbedOptionsDialog::rowToggled(int row)
{
    QList<CandidateRow> &rows = m_embedder->subtitles();
    if (row < 0 || row >= rows.size() || rows[row].isSubtitle ||
        m_table->item(row, IntegrateColumn)->checkState() != Qt::Checked)
        return;
    m_filling = true;
    for (int i = 0; i < rows.size(); ++i)
        if (i != row && !rows[i].isSubtitle)
            m_table->item(i, IntegrateColumn)->setCheckState(Qt::Unchecked);
    m_filling = false;
}

void EmbedOptionsDialog::applyChecks()
{
    QList<CandidateRow> &rows = m_embedder->subtitles();
    for (int i = 0; i < rows.size() && i < m_table->rowCount(); ++i)
        rows[i].integrate = m_table->item(i, IntegrateColumn)->checkState() == Qt::Checked;
}
