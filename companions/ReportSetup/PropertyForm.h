// The properties of a report: title, paper, margins, fonts and what its pages show.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#include "DialogForm.h"
#include "ReportProperties.h"

class TRepPropertyForm : public forms::DialogForm {
public:
    // `pageTitle` is the report's own title: it stands where no other has been stored, and leaving it there
    // stores none.
    TRepPropertyForm(const QString& installDir, const QString& gridKey, const QString& pageTitle);

private:
    void build();
    QWidget* paperGroup();
    QWidget* marginGroup();
    QWidget* fontGroup();
    QWidget* contentGroup();
    QLineEdit* numberEdit(const char* name, QWidget* parent);
    void fill(const report::ReportProperties& properties);
    // Throws Refusal, with the focus on the field, where a number is none.
    report::ReportProperties entered() const;
    double numberIn(QLineEdit* edit, const QString& caption) const;
    QWidget* widgetOf(report::Part part) const;
    void accept();

    QString m_installDir, m_gridKey, m_pageTitle;
    QLineEdit* m_title;
    QComboBox* m_paper;
    QRadioButton *m_portrait, *m_landscape;
    QLineEdit *m_top, *m_bottom, *m_left, *m_right;
    QComboBox* m_family;
    QLineEdit *m_titleSize, *m_bodySize;
    QCheckBox *m_shaded, *m_numbers, *m_totals;
};
