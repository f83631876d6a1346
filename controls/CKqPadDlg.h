#pragma once

#include <QDialog>
#include <QHash>
#include <QList>

class CKqButton;
class QGridLayout;
class QLabel;
class QLayout;

// The frame the keypads share: a display line over the keys, the keys in grids two pixels apart,
// OK and Cancel below. The pad lays itself out for the screen when it first shows (or for a
// given area through FitTo): upright screens stack the key groups, wide screens put them side
// by side, and keys grow with the room up to a comfortable size. Physical keys reach the pad's
// keys through shortcuts; a disabled key ignores its shortcut. Enter is OK, Escape is Cancel.
class CKqPadDlg : public QDialog
{
    Q_OBJECT

public:
    ~CKqPadDlg() override;

    // Lays the pad out for a screen area of this size and sizes the dialog to fit inside it.
    void FitTo(const QSize& room);

    // The display line.
    QLabel* Display() const { return m_display; }
    // Every key of the pad (OK and Cancel excluded), in the order they were added.
    const QList<CKqButton*>& Keys() const { return m_keys; }

protected:
    // A pad with its title, or the fallback title when the given one is empty.
    CKqPadDlg(QWidget* parent, const QString& title, const QString& fallbackTitle);

    // Adds a key named "key_<name>"; a click calls OnKey with the id.
    CKqButton* AddKey(const QString& name, const QString& text, const QColor& face, int id);
    // A physical key (Qt::Key) that clicks the pad's key.
    void AddShortcut(int qtKey, CKqButton* key);
    // A typed character (such as the locale's decimal separator) that clicks the pad's key.
    void AddShortcut(const QString& typed, CKqButton* key);
    // A label over a group of keys.
    QLabel* AddCaption(const QString& text);
    // An empty grid with the keys' spacing.
    static QGridLayout* NewGrid();
    // Sets the display line's text and alignment.
    void SetDisplayText(const QString& text);
    void SetDisplayAlignment(Qt::Alignment alignment);

    // A key was clicked.
    virtual void OnKey(int id) = 0;
    // Builds the keys' layout for an upright or a wide screen.
    virtual QLayout* ArrangeKeys(bool landscape) = 0;

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    // Gives the keys of every grid in the layout equal shares of the room.
    static void EvenOut(QLayout* keys);
    // Sets every key's smallest and largest size.
    void LimitKeys(const QSize& smallest, const QSize& largest);

    QLabel* m_display;
    CKqButton* m_ok;
    CKqButton* m_cancel;
    QList<CKqButton*> m_keys;
    QList<QLabel*> m_captions;
    QHash<int, CKqButton*> m_keyShortcuts;
    QHash<QString, CKqButton*> m_textShortcuts;
    bool m_fitted = false;
};
