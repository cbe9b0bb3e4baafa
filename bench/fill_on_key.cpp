// fill_on_key: covers the last screen with a colour, and with the other of two at each key press:
// the least that any program has to do between a key and a frame.

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>

namespace {

class Fill : public QWidget
{
public:
    Fill()
    {
        setWindowTitle(QStringLiteral("Fill"));
        setAttribute(Qt::WA_OpaquePaintEvent);
        setGeometry(QGuiApplication::screens().constLast()->geometry());
        setWindowState(Qt::WindowFullScreen);
    }

protected:
    void keyPressEvent(QKeyEvent * /*event*/) override
    {
        m_isLight = !m_isLight;
        repaint();
    }

    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter(this).fillRect(rect(), m_isLight ? Qt::white : Qt::darkBlue);
    }

private:
    bool m_isLight = false;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    Fill fill;
    fill.show();
    return QApplication::exec();
}
