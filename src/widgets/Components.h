// The small visual components of a form, each with a caption and the named colours that a colour
// scheme sets. Qt's own widgets serve where they do the same: QPushButton, QLineEdit, QLabel,
// QComboBox, QCheckBox, QRadioButton, QGroupBox, QPlainTextEdit, QTabWidget.
#pragma once

#include <QFrame>
#include <QPixmap>
#include <QToolButton>

namespace widgets {

// A panel: a frame that shows a caption, blanks included, and holds other components.
class Panel : public QFrame {
    Q_OBJECT

public:
    enum class Bevel { None, Raised, Lowered };

    explicit Panel(QWidget* parent = nullptr);

    // The text begins at the side where reading begins.
    void setCaption(const QString& caption);
    const QString& caption() const { return m_caption; }
    void setBevel(Bevel bevel);
    void setColors(const QColor& background, const QColor& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    // Pixels that the caption keeps free at the side where it begins.
    virtual int captionIndent() const { return 0; }

private:
    QString m_caption;
};

// A small framed rectangle behind a caption button.
class Shape : public QWidget {
    Q_OBJECT

public:
    explicit Shape(QWidget* parent = nullptr);
    void setBrush(const QColor& brush);
    void setPen(const QColor& pen);
    QColor brush() const { return m_brush; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_brush;
    QColor m_pen;
};

// A flat button that never takes the focus, so that a click leaves a row in edit as it is.
class SpeedButton : public QToolButton {
    Q_OBJECT

public:
    enum class Glyph { None, Close, Minimize };

    explicit SpeedButton(QWidget* parent = nullptr);
    void setGlyph(Glyph glyph);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Glyph m_glyph = Glyph::None;
};

// A caption bar: the panel named Caption_Panel, by which a borderless form is dragged.
class CaptionBar : public Panel {
    Q_OBJECT

public:
    explicit CaptionBar(QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    int captionIndent() const override;
};

// The component, under the name by which forms and scenarios find it.
template <class Component>
Component* named(Component* component, const char* name) {
    component->setObjectName(QLatin1String(name));
    return component;
}

class Form;
// The form that a widget stands on, itself included; null when there is none.
Form* formOf(QWidget* widget);

// Persian text needs a font that has its letters: Tahoma, or what stands in for it here.
QFont formFont(int pixelSize = 13);

}  // namespace widgets
