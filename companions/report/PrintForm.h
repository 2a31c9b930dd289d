// The preview of a report: one page at a time, painted as it will be printed; printing and PDF from there.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

#include "CompanionEntries.h"
#include "DialogForm.h"
#include "GridReport.h"

namespace report {

class PaperView;

class TPrintForm : public forms::DialogForm {
public:
    // The report must outlive the form; `pdfFile` is the name offered for a file.
    TPrintForm(const GridReport& report, const QString& pdfFile);

    // The page shown, from 0; a place beyond the ends is the end.
    int page() const { return m_page; }
    void showPage(int page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QBoxLayout* makeBar();
    bool handleKey(const QKeyEvent& key);
    bool scrollBy(int step);
    void zoomBy(int step);
    void fit();
    void goToTyped();
    void savePdf();

    const GridReport& m_report;
    QString m_pdfFile;
    int m_page = 0;
    PaperView* m_paper;
    QScrollArea* m_area;
    QLineEdit* m_pageEdit = nullptr;
    QComboBox* m_zoom = nullptr;
    QLabel* m_note = nullptr;
    QList<QPushButton*> m_backward, m_forward;
};

// Reads the rows of the grid and shows them until the operator closes the preview.
void showPreview(const TDLLPrnParam& parameters, const QList<ReportColumn>& columns,
                 const Grouping& grouping = {});

}  // namespace report
