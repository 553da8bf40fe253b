#pragma once

#include <QList>
#include <QString>
#include <QWidget>

// The mixer's panel as a drawing: each rotary, fader and key at its place and under its name. The
// boxes that stand on it are the form's, which owns it; the part whose box has the focus is lit.
class PanelMap : public QWidget
{
    Q_OBJECT

public:
    enum class Shape {
        Rotary,
        Fader,
        Key,
        Diamond, // four keys, up, down, left and right
    };

    explicit PanelMap(QWidget* parent);

    // place: of shape and caption, in the map.
    void add(Shape shape, const QRect& place, const QString& caption);
    // Lights the part at a place, and no other.
    void light(const QPoint& place);
    void lightNone() { setLit(-1); }

    // The part of a fader that moves, where its number stands.
    static QRect capOf(const QRect& fader);
    // The ring of a rotary, around its number.
    static QRect ringOf(const QRect& rotary);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Part {
        Shape shape;
        QRect place;
        QString caption;
    };

    void setLit(qsizetype index);
    void paintPart(QPainter& painter, const Part& part, bool isLit) const;

    QList<Part> parts;
    qsizetype lit = -1;
};
