#pragma once

#include "app/CAppServices.h"

#include <QObject>

#include <cstddef>

class CLogbookDoc;
class CUnitSettings;
class QWidget;

// The commands of the logbook's settings: the user profile, the equipment and the preferences
// dialogs, each offered only while a logbook is open, and the three of them in a row after a
// new logbook. Each dialog edits a copy, which the command hands to the document on OK (the
// document marks itself modified when it changed); every OK announces changed() so the frame
// shows the new units.
class CSettingsCommands : public QObject
{
    Q_OBJECT

public:
    // The commands on the frame's document and unit preferences (both outlive this object); the
    // dialogs open over parent.
    CSettingsCommands(CLogbookDoc& doc, CUnitSettings& units, const CAppServices& services, QWidget* parent);

    // True while a logbook is open.
    bool IsAvailable() const;

public slots:
    // "User Profile": true when closed with OK.
    bool OnUserProfile();
    // "Equipment": true when closed with OK.
    bool OnEquipment();
    // "Preferences": true when closed with OK.
    bool OnPreferences();
    // After New: the profile, then on OK the equipment, then on OK the preferences.
    void RunNewLogbookChain();

signals:
    // A dialog was closed with OK: the view refreshes its summary and lists, the frame its title.
    void changed();

private:
    // Announces the OK.
    void Accepted();
    // A change that alters what count signed jumps show (a renamed rig, a new custom fall rate)
    // is made only after a Yes; true when there are none or the user agrees.
    bool MayTouchSignedJumps(std::size_t count) const;

    CLogbookDoc& m_doc;
    CUnitSettings& m_units;
    CAppServices m_services;
    QWidget* m_parent;
};
