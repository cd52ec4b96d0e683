<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CanvasAccessible</name>
    <message>
        <source>Canvas without a curve</source>
        <translation>Zeichenfläche ohne Kurve</translation>
    </message>
    <message>
        <source>Canvas, curve %1</source>
        <translation>Zeichenfläche, Kurve %1</translation>
    </message>
    <message>
        <source>%1 points, %2 selected</source>
        <translation>%1 Punkte, %2 ausgewählt</translation>
    </message>
    <message>
        <source>Formula %1</source>
        <translation>Formel %1</translation>
    </message>
</context>
<context>
    <name>CanvasEdit</name>
    <message>
        <source>%1 curves</source>
        <translation>%1 Kurven</translation>
    </message>
</context>
<context>
    <name>CanvasFunctionBase</name>
    <message>
        <source>Variable %1 not found</source>
        <translation>Variable %1 nicht gefunden</translation>
    </message>
    <message>
        <source>Unmatched parenthesis</source>
        <translation>Klammer ohne Gegenstück</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannter Fehler</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>The formula of %1 can&apos;t be read any more:
%2</source>
        <translation>Die Formel von %1 kann nicht mehr gelesen werden:
%2</translation>
    </message>
    <message>
        <source>Delete the formula of %1</source>
        <translation>Formel von %1 löschen</translation>
    </message>
    <message>
        <source>Show the spline of %1</source>
        <translation>Spline von %1 zeigen</translation>
    </message>
    <message>
        <source>Show the formula of %1</source>
        <translation>Formel von %1 zeigen</translation>
    </message>
    <message>
        <source>Reset all curves</source>
        <translation>Alle Kurven zurücksetzen</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>%1 zurücksetzen</translation>
    </message>
    <message>
        <source>Syntax error</source>
        <translation>Syntaxfehler</translation>
    </message>
    <message>
        <source>Enter the formula of %1</source>
        <translation>Formel von %1 eingeben</translation>
    </message>
    <message>
        <source>Cyclical dependency</source>
        <translation>Zyklische Abhängigkeit</translation>
    </message>
    <message>
        <source>Cyclical dependency has been found for d-var %1 </source>
        <translation>Zyklische Abhängigkeit bei der abhängigen Variablen %1 gefunden</translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>%1 laden</translation>
    </message>
    <message>
        <source>Change the start behaviour of %1</source>
        <translation>Anfangsverhalten von %1 ändern</translation>
    </message>
    <message>
        <source>Change the end behaviour of %1</source>
        <translation>Endverhalten von %1 ändern</translation>
    </message>
    <message>
        <source>Delete a point of %1</source>
        <translation>Punkt von %1 löschen</translation>
    </message>
    <message>
        <source>Delete %1 points of %2</source>
        <translation>%1 Punkte von %2 löschen</translation>
    </message>
    <message>
        <source>Add a point to %1</source>
        <translation>Punkt zu %1 hinzufügen</translation>
    </message>
    <message>
        <source>Change the type of points</source>
        <translation>Typ von Punkten ändern</translation>
    </message>
    <message>
        <source>Delete points</source>
        <translation>Punkte löschen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Scale a point of %1</source>
        <translation>Punkt von %1 skalieren</translation>
    </message>
    <message>
        <source>Scale %1 points of %2</source>
        <translation>%1 Punkte von %2 skalieren</translation>
    </message>
    <message>
        <source>Pan a point of %1</source>
        <translation>Punkt von %1 versetzen</translation>
    </message>
    <message>
        <source>Pan %1 points of %2</source>
        <translation>%1 Punkte von %2 versetzen</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 ist gesperrt.</translation>
    </message>
    <message>
        <source>The application has locked %1.</source>
        <translation>Die Anwendung hat %1 gesperrt.</translation>
    </message>
    <message>
        <source>The application hides %1.</source>
        <translation>Die Anwendung blendet %1 aus.</translation>
    </message>
    <message>
        <source>%1 is hidden.</source>
        <translation>%1 ist ausgeblendet.</translation>
    </message>
    <message>
        <source>%1 is seen alone.</source>
        <translation>%1 ist allein zu sehen.</translation>
    </message>
</context>
<context>
    <name>CanvasHands</name>
    <message>
        <source>Move a point of %1</source>
        <translation>Punkt von %1 verschieben</translation>
    </message>
    <message>
        <source>Change a tangent of %1</source>
        <translation>Tangente von %1 ändern</translation>
    </message>
    <message>
        <source>Move %1 points of %2</source>
        <translation>%1 Punkte von %2 verschieben</translation>
    </message>
</context>
<context>
    <name>CanvasPicture</name>
    <message>
        <source>Drop the name of a curve on the list to edit it here</source>
        <translation>Den Namen einer Kurve auf die Liste ziehen, um sie hier zu bearbeiten</translation>
    </message>
    <message>
        <source>Double-click to add a point</source>
        <translation>Doppelklick fügt einen Punkt hinzu</translation>
    </message>
    <message>
        <source>Slope %1</source>
        <translation>Steigung %1</translation>
    </message>
    <message>
        <source>Own scale</source>
        <translation>Eigener Maßstab</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>All curves</source>
        <translation>Alle Kurven</translation>
    </message>
    <message>
        <source>Snapping</source>
        <translation>Einrasten</translation>
    </message>
    <message>
        <source>All points of this curve lie outside the range that is set under &quot;Options&quot;</source>
        <translation>Alle Punkte dieser Kurve liegen außerhalb des Bereichs, der unter „Optionen“ eingestellt ist</translation>
    </message>
</context>
<context>
    <name>ControlMenu</name>
    <message>
        <source>Create key</source>
        <translation>Keyframe erstellen</translation>
    </message>
    <message>
        <source>Delete key</source>
        <translation>Keyframe löschen</translation>
    </message>
</context>
<context>
    <name>ControlMenu2</name>
    <message>
        <source>Remove from editing list</source>
        <translation>Aus der Bearbeitungsliste entfernen</translation>
    </message>
    <message>
        <source>Change color</source>
        <translation>Farbe ändern</translation>
    </message>
</context>
<context>
    <name>ControlSplineNode</name>
    <message>
        <source>Change the type of a point of %1</source>
        <translation>Typ eines Punktes von %1 ändern</translation>
    </message>
    <message>
        <source>Change the type of %1 points of %2</source>
        <translation>Typ von %1 Punkten von %2 ändern</translation>
    </message>
</context>
<context>
    <name>CurveEditor</name>
    <message>
        <source>Canvas</source>
        <translation>Zeichenfläche</translation>
    </message>
    <message>
        <source>Horizontal axis</source>
        <translation>Waagerechte Achse</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Curves</source>
        <translation>Kurven</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source> Fit </source>
        <translation> Einpassen </translation>
    </message>
    <message>
        <source> Fit H </source>
        <translation> Einpassen H </translation>
    </message>
    <message>
        <source> Fit V </source>
        <translation> Einpassen V </translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalieren</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>Versetzen</translation>
    </message>
    <message>
        <source>Unary functions</source>
        <translation>Unäre Funktionen</translation>
    </message>
    <message>
        <source>Binary functions</source>
        <translation>Binäre Funktionen</translation>
    </message>
    <message>
        <source>Ternary functions</source>
        <translation>Ternäre Funktionen</translation>
    </message>
    <message>
        <source>I vars</source>
        <translation>Unabh. Var.</translation>
    </message>
    <message>
        <source>D vars</source>
        <translation>Abh. Var.</translation>
    </message>
    <message>
        <source>Frame:</source>
        <translation>Bild:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Zeit:</translation>
    </message>
    <message>
        <source>This&apos;s the expression parsed</source>
        <translation>Dies ist der ausgewertete Ausdruck</translation>
    </message>
    <message>
        <source>Reset All Checked Curves</source>
        <translation>Alle markierten Kurven zurücksetzen</translation>
    </message>
    <message>
        <source>Reset curve</source>
        <translation>Kurve zurücksetzen</translation>
    </message>
    <message>
        <source>Load curve</source>
        <translation>Kurve laden</translation>
    </message>
    <message>
        <source>Save curve</source>
        <translation>Kurve speichern</translation>
    </message>
    <message>
        <source>Set Range</source>
        <translation>Bereich festlegen</translation>
    </message>
    <message>
        <source>Reset View</source>
        <translation>Ansicht zurücksetzen</translation>
    </message>
    <message>
        <source>Load image</source>
        <translation>Bild laden</translation>
    </message>
    <message>
        <source>Clear image</source>
        <translation>Bild entfernen</translation>
    </message>
    <message>
        <source>Fit View</source>
        <translation>Ansicht einpassen</translation>
    </message>
    <message>
        <source>Fit Horizontal View</source>
        <translation>Ansicht waagerecht einpassen</translation>
    </message>
    <message>
        <source>Fit Vertical View</source>
        <translation>Ansicht senkrecht einpassen</translation>
    </message>
    <message>
        <source>Scale selection</source>
        <translation>Auswahl skalieren</translation>
    </message>
    <message>
        <source>Pan selection</source>
        <translation>Auswahl versetzen</translation>
    </message>
    <message>
        <source>Show time</source>
        <translation>Zeit anzeigen</translation>
    </message>
    <message>
        <source>Show frames</source>
        <translation>Bilder anzeigen</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Null</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>Konstant</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Loop offset</source>
        <translation>Schleife mit Versatz</translation>
    </message>
    <message>
        <source>Follow tangent</source>
        <translation>Tangente folgen</translation>
    </message>
    <message>
        <source>Start Node Behaviour</source>
        <translation>Verhalten vor dem ersten Stützpunkt</translation>
    </message>
    <message>
        <source>Last Node Behaviour</source>
        <translation>Verhalten nach dem letzten Stützpunkt</translation>
    </message>
    <message>
        <source>Horizontal axis mode</source>
        <translation>Modus der waagerechten Achse</translation>
    </message>
    <message>
        <source>Reset all the checked curves</source>
        <translation>Setzt alle markierten Kurven zurück</translation>
    </message>
    <message>
        <source>Reset the current editing curve</source>
        <translation>Setzt die aktuelle Kurve zurück</translation>
    </message>
    <message>
        <source>Open previously saved curve</source>
        <translation>Öffnet eine früher gespeicherte Kurve</translation>
    </message>
    <message>
        <source>Save the current curve</source>
        <translation>Speichert die aktuelle Kurve</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Ctrl+Y</source>
        <translation>Ctrl+Y</translation>
    </message>
    <message>
        <source>Ctrl+l</source>
        <translation>Ctrl+l</translation>
    </message>
    <message>
        <source>Ctrl+s</source>
        <translation>Ctrl+s</translation>
    </message>
    <message>
        <source>Alt+s</source>
        <translation>Alt+s</translation>
    </message>
    <message>
        <source>Alt+i</source>
        <translation>Alt+i</translation>
    </message>
    <message>
        <source>Alt+c</source>
        <translation>Alt+c</translation>
    </message>
    <message>
        <source>Alt+h</source>
        <translation>Alt+h</translation>
    </message>
    <message>
        <source>Alt+v</source>
        <translation>Alt+v</translation>
    </message>
    <message>
        <source>Alt+t</source>
        <translation>Alt+t</translation>
    </message>
    <message>
        <source>Alt+f</source>
        <translation>Alt+f</translation>
    </message>
    <message>
        <source>Resets, loads and saves curves</source>
        <translation>Setzt Kurven zurück, lädt und speichert sie</translation>
    </message>
    <message>
        <source>Chooses the current curve among those on the canvas</source>
        <translation>Wählt die aktuelle Kurve unter denen auf der Zeichenfläche</translation>
    </message>
    <message>
        <source>Sets the view, the background image and the curve outside its nodes</source>
        <translation>Stellt die Ansicht, das Hintergrundbild und die Kurve außerhalb ihrer Stützpunkte ein</translation>
    </message>
    <message>
        <source>Takes edits back, and works on the selected points and the view</source>
        <translation>Nimmt Änderungen zurück und bearbeitet die ausgewählten Punkte und die Ansicht</translation>
    </message>
    <message>
        <source>Makes the expression the argument of a function</source>
        <translation>Macht den Ausdruck zum Argument einer Funktion</translation>
    </message>
    <message>
        <source>Joins the expression with a second operand</source>
        <translation>Verbindet den Ausdruck mit einem zweiten Operanden</translation>
    </message>
    <message>
        <source>Makes the expression one of the two that a condition chooses from</source>
        <translation>Macht den Ausdruck zu einem von zweien, aus denen eine Bedingung wählt</translation>
    </message>
    <message>
        <source>Inserts the time or the frame number</source>
        <translation>Fügt die Zeit oder die Bildnummer ein</translation>
    </message>
    <message>
        <source>Inserts the value of another curve</source>
        <translation>Fügt den Wert einer anderen Kurve ein</translation>
    </message>
    <message>
        <source>Shows the whole current curve</source>
        <translation>Zeigt die ganze aktuelle Kurve</translation>
    </message>
    <message>
        <source>Shows all times of the current curve</source>
        <translation>Zeigt alle Zeiten der aktuellen Kurve</translation>
    </message>
    <message>
        <source>Shows all values of the current curve</source>
        <translation>Zeigt alle Werte der aktuellen Kurve</translation>
    </message>
    <message>
        <source>Scales the selected points by two factors</source>
        <translation>Skaliert die ausgewählten Punkte mit zwei Faktoren</translation>
    </message>
    <message>
        <source>Moves the selected points by two distances</source>
        <translation>Versetzt die ausgewählten Punkte um zwei Strecken</translation>
    </message>
    <message>
        <source>Time or frame at the mouse</source>
        <translation>Zeit oder Bild an der Maus</translation>
    </message>
    <message>
        <source>Time or frame number at the mouse</source>
        <translation>Zeit oder Bildnummer an der Maus</translation>
    </message>
    <message>
        <source>Value at the mouse</source>
        <translation>Wert an der Maus</translation>
    </message>
    <message>
        <source>Value of the curve</source>
        <translation>Wert der Kurve</translation>
    </message>
    <message>
        <source>Value of the current curve at the time of the mouse</source>
        <translation>Wert der aktuellen Kurve zur Zeit an der Maus</translation>
    </message>
    <message>
        <source>%1 holds no curve that can be read.</source>
        <translation>%1 enthält keine lesbare Kurve.</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 existiert bereits.
Soll die Datei ersetzt werden?</translation>
    </message>
    <message>
        <source>The curve could not be saved to %1.</source>
        <translation>Die Kurve konnte nicht in %1 gespeichert werden.</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>This expression is too long for the line and can&apos;t be edited here</source>
        <translation>Dieser Ausdruck ist zu lang für die Zeile und kann hier nicht bearbeitet werden</translation>
    </message>
    <message>
        <source>Here appears the expression</source>
        <translation>Hier erscheint der Ausdruck</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Wiederholen: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>The curve was saved to %1, but is perhaps not yet on the disk.</source>
        <translation>Die Kurve wurde in %1 gespeichert, ist aber vielleicht noch nicht auf dem Datenträger.</translation>
    </message>
    <message>
        <source>%1 holds no picture that can be read.</source>
        <translation>%1 enthält kein lesbares Bild.</translation>
    </message>
    <message>
        <source>Edit a curve</source>
        <translation>Kurve bearbeiten</translation>
    </message>
    <message>
        <source>There is no curve of the name &quot;%1&quot;.</source>
        <translation>Es gibt keine Kurve mit dem Namen „%1“.</translation>
    </message>
    <message>
        <source>Formula</source>
        <translation>Formel</translation>
    </message>
    <message>
        <source>The line has room for no more than %1 characters.</source>
        <translation>Die Zeile hat nur für %1 Zeichen Platz.</translation>
    </message>
    <message>
        <source>All pictures (%1)</source>
        <translation>Alle Bilder (%1)</translation>
    </message>
</context>
<context>
    <name>CurveEditorDialogBase</name>
    <message>
        <source>Curve Editor</source>
        <translation>Kurveneditor</translation>
    </message>
    <message>
        <source>Selected variables</source>
        <translation>Ausgewählte Variablen</translation>
    </message>
    <message>
        <source>Here you can select the variables to be edited as curves</source>
        <translation>Hier können die Variablen ausgewählt werden, die als Kurven bearbeitet werden</translation>
    </message>
    <message>
        <source>&lt;&lt;</source>
        <translation>&lt;&lt;</translation>
    </message>
    <message>
        <source>Select previous node</source>
        <translation>Vorigen Stützpunkt auswählen</translation>
    </message>
    <message>
        <source>&gt;&gt;</source>
        <translation>&gt;&gt;</translation>
    </message>
    <message>
        <source>Select next node</source>
        <translation>Nächsten Stützpunkt auswählen</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Zeit:</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>Wert:</translation>
    </message>
    <message>
        <source>Pre-behaviour:</source>
        <translation>Verhalten davor:</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Null</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>Konstant</translation>
    </message>
    <message>
        <source>Post-behaviour:</source>
        <translation>Verhalten danach:</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Loop offset</source>
        <translation>Schleife mit Versatz</translation>
    </message>
    <message>
        <source>Follow Tangent</source>
        <translation>Tangente folgen</translation>
    </message>
    <message>
        <source>Ease From:</source>
        <translation>Abgang:</translation>
    </message>
    <message>
        <source>Ease To:</source>
        <translation>Ankunft:</translation>
    </message>
    <message>
        <source>Tension:</source>
        <translation>Spannung:</translation>
    </message>
    <message>
        <source>Continuity:</source>
        <translation>Kontinuität:</translation>
    </message>
    <message>
        <source>Bias:</source>
        <translation>Neigung:</translation>
    </message>
    <message>
        <source>Incoming:</source>
        <translation>Ankommend:</translation>
    </message>
    <message>
        <source>Outgoing:</source>
        <translation>Abgehend:</translation>
    </message>
    <message>
        <source>Envelope</source>
        <translation>Hüllkurve</translation>
    </message>
    <message>
        <source>Here appears the expression</source>
        <translation>Hier erscheint der Ausdruck</translation>
    </message>
    <message>
        <source>This&apos;s the expression parsed</source>
        <translation>Dies ist der ausgewertete Ausdruck</translation>
    </message>
    <message>
        <source>Delete Expression</source>
        <translation>Ausdruck löschen</translation>
    </message>
    <message>
        <source>Expresion</source>
        <translation>Ausdruck</translation>
    </message>
    <message>
        <source>Current node: its place among the nodes of the curve, counted from 0</source>
        <translation>Aktueller Stützpunkt: seine Stelle unter den Stützpunkten der Kurve, von 0 an gezählt</translation>
    </message>
    <message>
        <source>Current node: its time, or its frame number</source>
        <translation>Aktueller Stützpunkt: seine Zeit oder Bildnummer</translation>
    </message>
    <message>
        <source>Current node: its value</source>
        <translation>Aktueller Stützpunkt: sein Wert</translation>
    </message>
    <message>
        <source>Current node: how the curve arrives, from 1 (it slows down) to -1 (it speeds up)</source>
        <translation>Aktueller Stützpunkt: wie die Kurve ankommt, von 1 (sie wird langsamer) bis -1 (sie wird schneller)</translation>
    </message>
    <message>
        <source>Current node: how the curve leaves, from 1 (slowly at first) to -1 (quickly at first)</source>
        <translation>Aktueller Stützpunkt: wie die Kurve abgeht, von 1 (anfangs langsam) bis -1 (anfangs schnell)</translation>
    </message>
    <message>
        <source>Current node: how tightly the curve turns, from a narrow bend at 1 to a wide one at -1</source>
        <translation>Aktueller Stützpunkt: wie eng die Kurve biegt, von einem engen Bogen bei 1 bis zu einem weiten bei -1</translation>
    </message>
    <message>
        <source>Current node: how sharp a corner the curve makes, 0 for none</source>
        <translation>Aktueller Stützpunkt: wie scharf die Ecke der Kurve ist, 0 für keine</translation>
    </message>
    <message>
        <source>Current node: whether its direction follows the node before (above 0) or after (below 0)</source>
        <translation>Aktueller Stützpunkt: ob seine Richtung dem Stützpunkt davor (über 0) oder danach (unter 0) folgt</translation>
    </message>
    <message>
        <source>Current node: slope of the curve before it, in values per time unit</source>
        <translation>Aktueller Stützpunkt: Steigung der Kurve davor, in Werten je Zeiteinheit</translation>
    </message>
    <message>
        <source>Current node: slope of the curve after it, in values per time unit</source>
        <translation>Aktueller Stützpunkt: Steigung der Kurve danach, in Werten je Zeiteinheit</translation>
    </message>
    <message>
        <source>Current node</source>
        <translation>Aktueller Stützpunkt</translation>
    </message>
    <message>
        <source>Curve before the first node</source>
        <translation>Kurve vor dem ersten Stützpunkt</translation>
    </message>
    <message>
        <source>Curve after the last node</source>
        <translation>Kurve nach dem letzten Stützpunkt</translation>
    </message>
    <message>
        <source>Type of the current node: it shapes the curve from the node before to this one</source>
        <translation>Typ des aktuellen Stützpunkts: Er formt die Kurve vom vorigen Stützpunkt bis zu diesem</translation>
    </message>
    <message>
        <source>Turns the current curve back into nodes that can be edited</source>
        <translation>Macht aus der aktuellen Kurve wieder Stützpunkte, die bearbeitet werden können</translation>
    </message>
    <message>
        <source>What the numbers of the current node do to a curve</source>
        <translation>Was die Zahlen des aktuellen Stützpunkts an einer Kurve bewirken</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Curves on the canvas</source>
        <translation>Kurven auf der Zeichenfläche</translation>
    </message>
    <message>
        <source>Previous node</source>
        <translation>Voriger Stützpunkt</translation>
    </message>
    <message>
        <source>Next node</source>
        <translation>Nächster Stützpunkt</translation>
    </message>
    <message>
        <source>Node index</source>
        <translation>Nummer des Stützpunkts</translation>
    </message>
    <message>
        <source>Time or frame</source>
        <translation>Zeit oder Bild</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Pre-behaviour</source>
        <translation>Verhalten davor</translation>
    </message>
    <message>
        <source>Post-behaviour</source>
        <translation>Verhalten danach</translation>
    </message>
    <message>
        <source>Ease from</source>
        <translation>Abgang</translation>
    </message>
    <message>
        <source>Ease to</source>
        <translation>Ankunft</translation>
    </message>
    <message>
        <source>Node type</source>
        <translation>Typ des Stützpunkts</translation>
    </message>
    <message>
        <source>Tension</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>Continuity</source>
        <translation>Kontinuität</translation>
    </message>
    <message>
        <source>Bias</source>
        <translation>Neigung</translation>
    </message>
    <message>
        <source>Outgoing tangent</source>
        <translation>Abgehende Tangente</translation>
    </message>
    <message>
        <source>Incoming tangent</source>
        <translation>Ankommende Tangente</translation>
    </message>
    <message>
        <source>Preview of the node parameters</source>
        <translation>Vorschau der Parameter des Stützpunkts</translation>
    </message>
    <message>
        <source>Expression</source>
        <translation>Ausdruck</translation>
    </message>
    <message>
        <source>Formula of t, then Return</source>
        <translation>Formel in t, dann Eingabetaste</translation>
    </message>
</context>
<context>
    <name>DecimalQuestion</name>
    <message>
        <source>Line %1 can be read in two ways. These are the rows from there on:</source>
        <translation>Zeile %1 lässt sich auf zwei Arten lesen. Das sind die Zeilen ab dort:</translation>
    </message>
    <message>
        <source>With a decimal comma:</source>
        <translation>Mit Dezimalkomma:</translation>
    </message>
    <message>
        <source>With a decimal point:</source>
        <translation>Mit Dezimalpunkt:</translation>
    </message>
    <message>
        <source>Decimal comma</source>
        <translation>Dezimalkomma</translation>
    </message>
    <message>
        <source>Decimal point</source>
        <translation>Dezimalpunkt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>EditingList</name>
    <message>
        <source>solo</source>
        <translation>allein</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>ausgeblendet</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>gesperrt</translation>
    </message>
    <message>
        <source>Shows this curve alone, or with others that are marked so (Shift+H)</source>
        <translation>Zeigt diese Kurve allein, oder mit anderen, die so markiert sind (Umschalt+H)</translation>
    </message>
    <message>
        <source>The application hides this curve</source>
        <translation>Die Anwendung blendet diese Kurve aus</translation>
    </message>
    <message>
        <source>Hides this curve (H)</source>
        <translation>Blendet diese Kurve aus (H)</translation>
    </message>
    <message>
        <source>The application has locked this curve</source>
        <translation>Die Anwendung hat diese Kurve gesperrt</translation>
    </message>
    <message>
        <source>Locks this curve against edits (L)</source>
        <translation>Sperrt diese Kurve gegen Änderungen (L)</translation>
    </message>
    <message>
        <source>Open a curve with +</source>
        <translation>Mit + eine Kurve öffnen</translation>
    </message>
    <message>
        <source>formula</source>
        <translation>Formel</translation>
    </message>
</context>
<context>
    <name>PanDialog</name>
    <message>
        <source>pan selection</source>
        <translation>Auswahl versetzen</translation>
    </message>
    <message>
        <source>Pan X</source>
        <translation>Versatz X</translation>
    </message>
    <message>
        <source>Pan Y</source>
        <translation>Versatz Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>units of time</source>
        <translation>Zeiteinheiten</translation>
    </message>
    <message>
        <source>units of value</source>
        <translation>Werteinheiten</translation>
    </message>
</context>
<context>
    <name>PointAccessible</name>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Point %1 of %2, frame %3, value %4</source>
        <translation>Punkt %1 von %2, Bild %3, Wert %4</translation>
    </message>
    <message>
        <source>Point %1 of %2, time %3, value %4</source>
        <translation>Punkt %1 von %2, Zeit %3, Wert %4</translation>
    </message>
    <message>
        <source>Delete a point of %1</source>
        <translation>Punkt von %1 löschen</translation>
    </message>
    <message>
        <source>Delete %1 points of %2</source>
        <translation>%1 Punkte von %2 löschen</translation>
    </message>
</context>
<context>
    <name>PointCommands</name>
    <message>
        <source>Nudge a point of %1</source>
        <translation>Punkt von %1 ein wenig verschieben</translation>
    </message>
    <message>
        <source>Nudge %1 points of %2</source>
        <translation>%1 Punkte von %2 ein wenig verschieben</translation>
    </message>
    <message>
        <source>Cut points of %1</source>
        <translation>Punkte von %1 ausschneiden</translation>
    </message>
    <message>
        <source>Paste points</source>
        <translation>Punkte einfügen</translation>
    </message>
    <message>
        <source>Paste points into %1</source>
        <translation>Punkte in %1 einfügen</translation>
    </message>
    <message>
        <source>Duplicate points of %1</source>
        <translation>Punkte von %1 duplizieren</translation>
    </message>
    <message>
        <source>Insert a point on %1</source>
        <translation>Punkt in %1 einfügen</translation>
    </message>
    <message>
        <source>Flatten a point of %1</source>
        <translation>Tangenten eines Punktes von %1 waagerecht stellen</translation>
    </message>
    <message>
        <source>Flatten %1 points of %2</source>
        <translation>Tangenten von %1 Punkten von %2 waagerecht stellen</translation>
    </message>
    <message>
        <source>Align the tangents of a point of %1</source>
        <translation>Tangenten eines Punktes von %1 ausrichten</translation>
    </message>
    <message>
        <source>Align the tangents of %1 points of %2</source>
        <translation>Tangenten von %1 Punkten von %2 ausrichten</translation>
    </message>
    <message>
        <source>Smooth a point of %1</source>
        <translation>Punkt von %1 glätten</translation>
    </message>
    <message>
        <source>Smooth %1 points of %2</source>
        <translation>%1 Punkte von %2 glätten</translation>
    </message>
    <message>
        <source>Moved there, the points would lie beyond all times.</source>
        <translation>Dorthin verschoben, lägen die Punkte jenseits aller Zeiten.</translation>
    </message>
    <message>
        <source>Replace points of %1</source>
        <translation>Punkte von %1 ersetzen</translation>
    </message>
    <message>
        <source>Ease a point of %1</source>
        <translation>Punkt von %1 sanft beschleunigen</translation>
    </message>
    <message>
        <source>Ease %1 points of %2</source>
        <translation>%1 Punkte von %2 sanft beschleunigen</translation>
    </message>
    <message>
        <source>Ease: %1 may have no Bezier points</source>
        <translation>Beschleunigung: %1 darf keine Bézier-Punkte haben</translation>
    </message>
    <message>
        <source>Ease: a level segment has no step, and is straight now</source>
        <translation>Beschleunigung: ein waagerechter Abschnitt hat keine Stufe und ist jetzt gerade</translation>
    </message>
    <message>
        <source>Ease: deviates by at most %1 % of the step</source>
        <translation>Beschleunigung: weicht um höchstens %1 % der Stufe ab</translation>
    </message>
    <message>
        <source>Ease: exact</source>
        <translation>Beschleunigung: genau</translation>
    </message>
    <message>
        <source>%1; an eased Tcb segment beside it has bent</source>
        <translation>%1; ein Tcb-Abschnitt mit Abgang oder Ankunft daneben hat sich verbogen</translation>
    </message>
    <message>
        <source>Ease: select both ends of a segment that is not vertical</source>
        <translation>Beschleunigung: beide Enden eines Abschnitts auswählen, der nicht senkrecht ist</translation>
    </message>
    <message>
        <source>Ease: the application has changed the result</source>
        <translation>Beschleunigung: Die Anwendung hat das Ergebnis geändert</translation>
    </message>
</context>
<context>
    <name>PointText</name>
    <message>
        <source>The text holds no points.</source>
        <translation>Der Text enthält keine Punkte.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no column of points.</source>
        <translation>„%1“ ist keine Spalte von Punkten.</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is there twice.</source>
        <translation>Die Spalte „%1“ ist doppelt vorhanden.</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is missing.</source>
        <translation>Die Spalte „%1“ fehlt.</translation>
    </message>
    <message>
        <source>More than %1 points.</source>
        <translation>Mehr als %1 Punkte.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no type of a point.</source>
        <translation>„%1“ ist kein Typ eines Punktes.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number that a point can have.</source>
        <translation>„%1“ ist keine Zahl, die ein Punkt haben kann.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; can be read in two ways.</source>
        <translation>„%1“ lässt sich auf zwei Arten lesen.</translation>
    </message>
    <message>
        <source>A quotation mark has no partner.</source>
        <translation>Ein Anführungszeichen hat kein Gegenstück.</translation>
    </message>
    <message>
        <source>The line is too long.</source>
        <translation>Die Zeile ist zu lang.</translation>
    </message>
    <message>
        <source>Numbers expected: %2, found: %1.</source>
        <translation>Erwartete Zahlen: %2, gefunden: %1.</translation>
    </message>
    <message>
        <source>Rows expected: %2, found: %1.</source>
        <translation>Erwartete Zeilen: %2, gefunden: %1.</translation>
    </message>
</context>
<context>
    <name>PointType</name>
    <message>
        <source>Linear</source>
        <translation>Linear</translation>
    </message>
    <message>
        <source>Linear node</source>
        <translation>Linearer Stützpunkt</translation>
    </message>
    <message>
        <source>Linear point</source>
        <translation>Linearer Punkt</translation>
    </message>
    <message>
        <source>Selection to Linear</source>
        <translation>Auswahl zu Linear</translation>
    </message>
    <message>
        <source>Bezier</source>
        <translation>Bézier</translation>
    </message>
    <message>
        <source>Bezier node</source>
        <translation>Bézier-Stützpunkt</translation>
    </message>
    <message>
        <source>Bezier point</source>
        <translation>Bézier-Punkt</translation>
    </message>
    <message>
        <source>Selection to Bezier</source>
        <translation>Auswahl zu Bézier</translation>
    </message>
    <message>
        <source>Tcb</source>
        <translation>TCB</translation>
    </message>
    <message>
        <source>Tcb node</source>
        <translation>TCB-Stützpunkt</translation>
    </message>
    <message>
        <source>Tcb point</source>
        <translation>TCB-Punkt</translation>
    </message>
    <message>
        <source>Selection to Tcb</source>
        <translation>Auswahl zu TCB</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Halten</translation>
    </message>
    <message>
        <source>Hold node</source>
        <translation>Halte-Stützpunkt</translation>
    </message>
    <message>
        <source>Hold point</source>
        <translation>Haltepunkt</translation>
    </message>
    <message>
        <source>Selection to Hold</source>
        <translation>Auswahl zu Halten</translation>
    </message>
</context>
<context>
    <name>ScaleDialog</name>
    <message>
        <source>scale selection</source>
        <translation>Auswahl skalieren</translation>
    </message>
    <message>
        <source>Scale X</source>
        <translation>Faktor X</translation>
    </message>
    <message>
        <source>Scale Y</source>
        <translation>Faktor Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Pivot X</source>
        <translation>Fixpunkt X</translation>
    </message>
    <message>
        <source>Pivot Y</source>
        <translation>Fixpunkt Y</translation>
    </message>
    <message>
        <source>factor of times</source>
        <translation>Faktor der Zeiten</translation>
    </message>
    <message>
        <source>factor of values</source>
        <translation>Faktor der Werte</translation>
    </message>
    <message>
        <source>time that stays</source>
        <translation>Zeit, die bleibt</translation>
    </message>
    <message>
        <source>value that stays</source>
        <translation>Wert, der bleibt</translation>
    </message>
</context>
<context>
    <name>TcbCurveFrame</name>
    <message>
        <source>Select one point to edit its numbers</source>
        <translation>Einen Punkt auswählen, um seine Zahlen zu ändern</translation>
    </message>
    <message>
        <source>Open a curve with points to edit them here</source>
        <translation>Hier werden Punkte einer geöffneten Kurve bearbeitet</translation>
    </message>
</context>
<context>
    <name>TcbEditorForm</name>
    <message>
        <source>Change a number of a point of %1</source>
        <translation>Zahl eines Punktes von %1 ändern</translation>
    </message>
</context>
<context>
    <name>ViewportSettings</name>
    <message>
        <source>viewPort Settings</source>
        <translation>Ansichtsbereich</translation>
    </message>
    <message>
        <source>MinX</source>
        <translation>Min. X</translation>
    </message>
    <message>
        <source>MinY</source>
        <translation>Min. Y</translation>
    </message>
    <message>
        <source>MaxX</source>
        <translation>Max. X</translation>
    </message>
    <message>
        <source>MaxY</source>
        <translation>Max. Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>first time</source>
        <translation>erste Zeit</translation>
    </message>
    <message>
        <source>lowest value</source>
        <translation>kleinster Wert</translation>
    </message>
    <message>
        <source>last time</source>
        <translation>letzte Zeit</translation>
    </message>
    <message>
        <source>highest value</source>
        <translation>größter Wert</translation>
    </message>
</context>
<context>
    <name>curveeditor::BakeDialog</name>
    <message>
        <source>Bake</source>
        <translation>Backen</translation>
    </message>
    <message>
        <source>&amp;From frame</source>
        <translation>&amp;Von Bild</translation>
    </message>
    <message>
        <source>&amp;From time</source>
        <translation>&amp;Von Zeit</translation>
    </message>
    <message>
        <source>&amp;To frame</source>
        <translation>&amp;Bis Bild</translation>
    </message>
    <message>
        <source>&amp;To time</source>
        <translation>&amp;Bis Zeit</translation>
    </message>
    <message>
        <source>&amp;Every</source>
        <translation>&amp;Schrittweite</translation>
    </message>
    <message>
        <source>&amp;Points</source>
        <translation>&amp;Punkte</translation>
    </message>
    <message>
        <source>As few as the tolerance allows</source>
        <translation>So wenige, wie die Toleranz zulässt</translation>
    </message>
    <message>
        <source>To&amp;lerance</source>
        <translation>To&amp;leranz</translation>
    </message>
    <message>
        <source>The times must be numbers.</source>
        <translation>Die Zeiten müssen Zahlen sein.</translation>
    </message>
    <message>
        <source>This takes too long. Fewer points may do.</source>
        <translation>Das dauert zu lange. Vielleicht genügen weniger Punkte.</translation>
    </message>
    <message>
        <source>The step must be greater than 0.</source>
        <translation>Die Schrittweite muss größer als 0 sein.</translation>
    </message>
    <message>
        <source>The first time is later than the last.</source>
        <translation>Die erste Zeit liegt nach der letzten.</translation>
    </message>
    <message>
        <source>These are more than %1 points.</source>
        <translation>Das sind mehr als %1 Punkte.</translation>
    </message>
    <message>
        <source>The curve has no value there.</source>
        <translation>Die Kurve hat dort keinen Wert.</translation>
    </message>
    <message>
        <source>Number of points: %1</source>
        <translation>Anzahl der Punkte: %1</translation>
    </message>
    <message>
        <source>%1 values become %2 points, at most %3 away.</source>
        <translation>Aus %1 Werten werden %2 Punkte, höchstens %3 entfernt.</translation>
    </message>
    <message>
        <source>Bake %1</source>
        <translation>%1 backen</translation>
    </message>
</context>
<context>
    <name>curveeditor::CurveChooser</name>
    <message>
        <source>Curves to open</source>
        <translation>Zu öffnende Kurven</translation>
    </message>
    <message>
        <source>There is no other curve</source>
        <translation>Es gibt keine weitere Kurve</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Filter of the curves to open</source>
        <translation>Filter der zu öffnenden Kurven</translation>
    </message>
    <message>
        <source>Curves that are not on the canvas</source>
        <translation>Kurven, die nicht auf der Zeichenfläche sind</translation>
    </message>
    <message>
        <source>Shows only the curves whose names contain this text; Return puts the chosen ones on the canvas</source>
        <translation>Zeigt nur die Kurven, deren Namen diesen Text enthalten; die Eingabetaste bringt die gewählten auf die Zeichenfläche</translation>
    </message>
    <message>
        <source>Return or a double click puts the chosen curves on the canvas, Shift and Ctrl choose several</source>
        <translation>Die Eingabetaste oder ein Doppelklick bringt die gewählten Kurven auf die Zeichenfläche; Umschalt und Strg wählen mehrere</translation>
    </message>
</context>
<context>
    <name>curveeditor::EaseDialog</name>
    <message>
        <source>CSS ease</source>
        <translation>CSS-Beschleunigung</translation>
    </message>
    <message>
        <source>x1 and x2 are numbers from 0 to 1, y1 and y2 from %1 to %2.</source>
        <translation>x1 und x2 sind Zahlen von 0 bis 1, y1 und y2 von %1 bis %2.</translation>
    </message>
    <message>
        <source>Points added to a segment: %1</source>
        <translation>Hinzugefügte Punkte je Abschnitt: %1</translation>
    </message>
</context>
<context>
    <name>curveeditor::EditMenu</name>
    <message>
        <source>Cut points</source>
        <translation>Punkte ausschneiden</translation>
    </message>
    <message>
        <source>Copy points</source>
        <translation>Punkte kopieren</translation>
    </message>
    <message>
        <source>Paste points at the time line</source>
        <translation>Punkte an der Zeitlinie einfügen</translation>
    </message>
    <message>
        <source>Paste points where they were</source>
        <translation>Punkte an ihrer alten Stelle einfügen</translation>
    </message>
    <message>
        <source>Duplicate points</source>
        <translation>Punkte duplizieren</translation>
    </message>
    <message>
        <source>Edit all curves at once</source>
        <translation>Alle Kurven zugleich bearbeiten</translation>
    </message>
    <message>
        <source>Select all points</source>
        <translation>Alle Punkte auswählen</translation>
    </message>
    <message>
        <source>Select no point</source>
        <translation>Keinen Punkt auswählen</translation>
    </message>
    <message>
        <source>Select the other points</source>
        <translation>Die anderen Punkte auswählen</translation>
    </message>
    <message>
        <source>Select the next point too</source>
        <translation>Auch den nächsten Punkt auswählen</translation>
    </message>
    <message>
        <source>Select the previous point too</source>
        <translation>Auch den vorigen Punkt auswählen</translation>
    </message>
    <message>
        <source>A frame later</source>
        <translation>Ein Bild später</translation>
    </message>
    <message>
        <source>A frame earlier</source>
        <translation>Ein Bild früher</translation>
    </message>
    <message>
        <source>A tenth of a grid line up</source>
        <translation>Eine Zehntel-Rasterlinie nach oben</translation>
    </message>
    <message>
        <source>A tenth of a grid line down</source>
        <translation>Eine Zehntel-Rasterlinie nach unten</translation>
    </message>
    <message>
        <source>A frame later, ten times</source>
        <translation>Zehn Bilder später</translation>
    </message>
    <message>
        <source>A frame earlier, ten times</source>
        <translation>Zehn Bilder früher</translation>
    </message>
    <message>
        <source>A tenth of a grid line up, ten times</source>
        <translation>Eine Rasterlinie nach oben</translation>
    </message>
    <message>
        <source>A tenth of a grid line down, ten times</source>
        <translation>Eine Rasterlinie nach unten</translation>
    </message>
    <message>
        <source>Move points</source>
        <translation>Punkte verschieben</translation>
    </message>
    <message>
        <source>Insert a point on the curve at the mouse</source>
        <translation>Punkt an der Maus in die Kurve einfügen</translation>
    </message>
    <message>
        <source>Insert a point on the curve at the time line</source>
        <translation>Punkt an der Zeitlinie in die Kurve einfügen</translation>
    </message>
    <message>
        <source>Tangents</source>
        <translation>Tangenten</translation>
    </message>
    <message>
        <source>Flatten</source>
        <translation>Waagerecht stellen</translation>
    </message>
    <message>
        <source>Align both sides</source>
        <translation>Beide Seiten ausrichten</translation>
    </message>
    <message>
        <source>Smooth without overshoot</source>
        <translation>Glätten ohne Überschwingen</translation>
    </message>
    <message>
        <source>Simplify…</source>
        <translation>Vereinfachen …</translation>
    </message>
    <message>
        <source>Bake…</source>
        <translation>Backen …</translation>
    </message>
    <message>
        <source>Snapping</source>
        <translation>Einrasten</translation>
    </message>
    <message>
        <source>Snap while dragging (Ctrl: the other way)</source>
        <translation>Beim Ziehen einrasten (Strg: umgekehrt)</translation>
    </message>
    <message>
        <source>To frames</source>
        <translation>An Bildern</translation>
    </message>
    <message>
        <source>To grid lines</source>
        <translation>An Rasterlinien</translation>
    </message>
    <message>
        <source>To points</source>
        <translation>An Punkten</translation>
    </message>
    <message>
        <source>To the time line</source>
        <translation>An der Zeitlinie</translation>
    </message>
    <message>
        <source>Show all curves</source>
        <translation>Alle Kurven zeigen</translation>
    </message>
    <message>
        <source>Show selected points or the curve</source>
        <translation>Ausgewählte Punkte oder die Kurve zeigen</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Time line a frame later</source>
        <translation>Zeitlinie ein Bild später</translation>
    </message>
    <message>
        <source>Time line a frame earlier</source>
        <translation>Zeitlinie ein Bild früher</translation>
    </message>
    <message>
        <source>Show the slope of the curve</source>
        <translation>Steigung der Kurve zeigen</translation>
    </message>
    <message>
        <source>Lock the curve</source>
        <translation>Kurve sperren</translation>
    </message>
    <message>
        <source>Hide the curve</source>
        <translation>Kurve ausblenden</translation>
    </message>
    <message>
        <source>Show the curve alone</source>
        <translation>Kurve allein zeigen</translation>
    </message>
    <message>
        <source>Paste at the time line, replacing points</source>
        <translation>An der Zeitlinie einfügen und Punkte ersetzen</translation>
    </message>
    <message>
        <source>Keep handles in line</source>
        <translation>Griffe auf einer Linie halten</translation>
    </message>
    <message>
        <source>Sine in</source>
        <translation>Sinus am Anfang</translation>
    </message>
    <message>
        <source>Sine out</source>
        <translation>Sinus am Ende</translation>
    </message>
    <message>
        <source>Sine in and out</source>
        <translation>Sinus an beiden Enden</translation>
    </message>
    <message>
        <source>Quadratic in</source>
        <translation>Quadratisch am Anfang</translation>
    </message>
    <message>
        <source>Quadratic out</source>
        <translation>Quadratisch am Ende</translation>
    </message>
    <message>
        <source>Quadratic in and out</source>
        <translation>Quadratisch an beiden Enden</translation>
    </message>
    <message>
        <source>Cubic in</source>
        <translation>Kubisch am Anfang</translation>
    </message>
    <message>
        <source>Cubic out</source>
        <translation>Kubisch am Ende</translation>
    </message>
    <message>
        <source>Cubic in and out</source>
        <translation>Kubisch an beiden Enden</translation>
    </message>
    <message>
        <source>Exponential in</source>
        <translation>Exponentiell am Anfang</translation>
    </message>
    <message>
        <source>Exponential out</source>
        <translation>Exponentiell am Ende</translation>
    </message>
    <message>
        <source>Exponential in and out</source>
        <translation>Exponentiell an beiden Enden</translation>
    </message>
    <message>
        <source>Back in</source>
        <translation>Ausholen am Anfang</translation>
    </message>
    <message>
        <source>Back out</source>
        <translation>Ausholen am Ende</translation>
    </message>
    <message>
        <source>Back in and out</source>
        <translation>Ausholen an beiden Enden</translation>
    </message>
    <message>
        <source>Ease</source>
        <translation>Beschleunigung</translation>
    </message>
    <message>
        <source>Smoothstep</source>
        <translation>Smoothstep</translation>
    </message>
    <message>
        <source>CSS…</source>
        <translation>CSS…</translation>
    </message>
    <message>
        <source>Own scale for each curve</source>
        <translation>Eigener Maßstab für jede Kurve</translation>
    </message>
    <message>
        <source>Transform box</source>
        <translation>Transformationsrahmen</translation>
    </message>
    <message>
        <source>Retime…</source>
        <translation>Zeit umrechnen…</translation>
    </message>
    <message>
        <source>Pale image behind the curves</source>
        <translation>Blasses Bild hinter den Kurven</translation>
    </message>
    <message>
        <source>No point is selected.</source>
        <translation>Kein Punkt ist ausgewählt.</translation>
    </message>
    <message>
        <source>No point of the current curve is selected.</source>
        <translation>Kein Punkt der aktuellen Kurve ist ausgewählt.</translation>
    </message>
    <message>
        <source>The clipboard holds no points.</source>
        <translation>Die Zwischenablage enthält keine Punkte.</translation>
    </message>
    <message>
        <source>The current curve shows no points.</source>
        <translation>Die aktuelle Kurve zeigt keine Punkte.</translation>
    </message>
    <message>
        <source>The current curve does not show more than two points.</source>
        <translation>Die aktuelle Kurve zeigt nicht mehr als zwei Punkte.</translation>
    </message>
    <message>
        <source>No curve that is shown is the current one.</source>
        <translation>Keine sichtbare Kurve ist die aktuelle.</translation>
    </message>
    <message>
        <source>The application does not allow that here.</source>
        <translation>Die Anwendung lässt das hier nicht zu.</translation>
    </message>
    <message>
        <source>Draw into the curve (hold D)</source>
        <translation>In die Kurve zeichnen (D halten)</translation>
    </message>
</context>
<context>
    <name>curveeditor::EditingListPanel</name>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Filter of the curves</source>
        <translation>Filter der Kurven</translation>
    </message>
    <message>
        <source>Shows only the curves whose names contain this text; the others stay on the canvas</source>
        <translation>Zeigt nur die Kurven, deren Namen diesen Text enthalten; die anderen bleiben auf der Zeichenfläche</translation>
    </message>
    <message>
        <source>Open curves…</source>
        <translation>Kurven öffnen…</translation>
    </message>
    <message>
        <source>Open curves</source>
        <translation>Kurven öffnen</translation>
    </message>
    <message>
        <source>Puts curves on the canvas (Insert in the list)</source>
        <translation>Bringt Kurven auf die Zeichenfläche (Einfg in der Liste)</translation>
    </message>
</context>
<context>
    <name>curveeditor::FitDialog</name>
    <message>
        <source>The tolerance must be a number, 0 or more.</source>
        <translation>Die Toleranz muss eine Zahl ab 0 sein.</translation>
    </message>
    <message>
        <source>The curve is locked.</source>
        <translation>Die Kurve ist gesperrt.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>curveeditor::FreehandDrag</name>
    <message>
        <source>Draw %1</source>
        <translation>%1 zeichnen</translation>
    </message>
    <message>
        <source>A formula can&apos;t be drawn.</source>
        <translation>Eine Formel lässt sich nicht zeichnen.</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 ist gesperrt.</translation>
    </message>
    <message>
        <source>This makes Bezier or Linear points, which the curve may not have.</source>
        <translation>Das ergibt Bézier- oder lineare Punkte, die diese Kurve nicht haben darf.</translation>
    </message>
    <message>
        <source>%1 is hidden.</source>
        <translation>%1 ist ausgeblendet.</translation>
    </message>
    <message>
        <source>The next drag draws; Escape forgets it.</source>
        <translation>Der nächste Zug zeichnet; Escape vergisst ihn.</translation>
    </message>
</context>
<context>
    <name>curveeditor::NumbersForm</name>
    <message>
        <source>This is no number</source>
        <translation>Das ist keine Zahl</translation>
    </message>
</context>
<context>
    <name>curveeditor::PointTableModel</name>
    <message>
        <source>Frame</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Incoming</source>
        <translation>Ankommend</translation>
    </message>
    <message>
        <source>Outgoing</source>
        <translation>Abgehend</translation>
    </message>
    <message>
        <source>Tension</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>Continuity</source>
        <translation>Kontinuität</translation>
    </message>
    <message>
        <source>Bias</source>
        <translation>Neigung</translation>
    </message>
    <message>
        <source>Ease To</source>
        <translation>Ankunft</translation>
    </message>
    <message>
        <source>Ease From</source>
        <translation>Abgang</translation>
    </message>
    <message>
        <source>Change the type of a point of %1</source>
        <translation>Typ eines Punktes von %1 ändern</translation>
    </message>
    <message>
        <source>Change the type of %1 points of %2</source>
        <translation>Typ von %1 Punkten von %2 ändern</translation>
    </message>
    <message>
        <source>Change a number of a point of %1</source>
        <translation>Zahl eines Punktes von %1 ändern</translation>
    </message>
    <message>
        <source>Change a number of %1 points of %2</source>
        <translation>Zahl von %1 Punkten von %2 ändern</translation>
    </message>
    <message>
        <source>No finite number was typed. The old one stays.</source>
        <translation>Es wurde keine endliche Zahl eingegeben. Die alte bleibt.</translation>
    </message>
    <message>
        <source>The curve is locked.</source>
        <translation>Die Kurve ist gesperrt.</translation>
    </message>
</context>
<context>
    <name>curveeditor::PointTablePage</name>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Points of the current curve</source>
        <translation>Punkte der aktuellen Kurve</translation>
    </message>
    <message>
        <source>Select all points</source>
        <translation>Alle Punkte auswählen</translation>
    </message>
    <message>
        <source>Selects all points of the current curve</source>
        <translation>Wählt alle Punkte der aktuellen Kurve aus</translation>
    </message>
    <message>
        <source>What is typed into a cell goes to all selected rows</source>
        <translation>Was in eine Zelle getippt wird, gilt für alle ausgewählten Zeilen</translation>
    </message>
    <message>
        <source>Open a curve with points to see them here</source>
        <translation>Hier stehen die Punkte einer geöffneten Kurve</translation>
    </message>
</context>
<context>
    <name>curveeditor::RetimeDialog</name>
    <message>
        <source>Retime a point of %1</source>
        <translation>Zeit eines Punktes von %1 umrechnen</translation>
    </message>
    <message>
        <source>Retime %1 points of %2</source>
        <translation>Zeiten von %1 Punkten von %2 umrechnen</translation>
    </message>
    <message>
        <source>Retime</source>
        <translation>Zeit umrechnen</translation>
    </message>
    <message>
        <source>&amp;Time factor</source>
        <translation>Faktor der &amp;Zeit</translation>
    </message>
    <message>
        <source>&amp;Value factor</source>
        <translation>Faktor der &amp;Werte</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Um</translation>
    </message>
    <message>
        <source>The first point</source>
        <translation>Den ersten Punkt</translation>
    </message>
    <message>
        <source>The curve at the time line</source>
        <translation>Die Kurve an der Zeitlinie</translation>
    </message>
    <message>
        <source>The middle</source>
        <translation>Die Mitte</translation>
    </message>
    <message>
        <source>The factors must be numbers, that of the times not 0.</source>
        <translation>Die Faktoren müssen Zahlen sein, der der Zeit nicht 0.</translation>
    </message>
    <message>
        <source>A curve has changed meanwhile and stays as it is.</source>
        <translation>Eine Kurve hat sich inzwischen geändert und bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>Number of points: %1</source>
        <translation>Anzahl der Punkte: %1</translation>
    </message>
    <message>
        <source>A single point keeps its place, unless it is retimed about the time line.</source>
        <translation>Ein einzelner Punkt behält seinen Ort, außer um die Zeitlinie.</translation>
    </message>
</context>
<context>
    <name>curveeditor::ShrinkingBox</name>
    <message>
        <source>More</source>
        <translation>Weitere</translation>
    </message>
</context>
<context>
    <name>curveeditor::SimplifyDialog</name>
    <message>
        <source>Simplify %1</source>
        <translation>%1 vereinfachen</translation>
    </message>
    <message>
        <source>Simplify</source>
        <translation>Vereinfachen</translation>
    </message>
    <message>
        <source>&amp;Tolerance</source>
        <translation>&amp;Toleranz</translation>
    </message>
    <message>
        <source>&amp;Keep rising and falling parts so</source>
        <translation>&amp;Steigende und fallende Teile bleiben so</translation>
    </message>
    <message>
        <source>The curve has changed meanwhile and stays as it is.</source>
        <translation>Die Kurve hat sich inzwischen geändert und bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>No fewer than %1 points are within this tolerance.</source>
        <translation>Mit weniger als %1 Punkten ist diese Toleranz nicht einzuhalten.</translation>
    </message>
    <message>
        <source>%1 points of the selected part become %2, at most %3 away.</source>
        <translation>Aus %1 Punkten des ausgewählten Teils werden %2, höchstens %3 entfernt.</translation>
    </message>
    <message>
        <source>%1 points become %2, at most %3 away.</source>
        <translation>Aus %1 Punkten werden %2, höchstens %3 entfernt.</translation>
    </message>
    <message>
        <source>This makes Bezier or Linear points, which the curve may not have.</source>
        <translation>Das ergibt Bézier- oder lineare Punkte, die diese Kurve nicht haben darf.</translation>
    </message>
</context>
<context>
    <name>curveeditor::TransformBox</name>
    <message>
        <source>That would leave points without a time or a value.</source>
        <translation>Damit hätten Punkte keine Zeit oder keinen Wert mehr.</translation>
    </message>
    <message>
        <source>Nothing that can be edited is selected.</source>
        <translation>Es ist nichts ausgewählt, das sich bearbeiten lässt.</translation>
    </message>
    <message>
        <source>A transform box takes points at two times or two values.</source>
        <translation>Ein Transformationsrahmen braucht Punkte an zwei Zeiten oder bei zwei Werten.</translation>
    </message>
    <message>
        <source>Edges scale, with Shift about the middle; the inside moves; Return ends it.</source>
        <translation>Kanten skalieren, mit Umschalt um die Mitte; das Innere verschiebt; Eingabe beendet.</translation>
    </message>
    <message>
        <source>Move a point of %1</source>
        <translation>Punkt von %1 verschieben</translation>
    </message>
    <message>
        <source>Move %1 points of %2</source>
        <translation>%1 Punkte von %2 verschieben</translation>
    </message>
    <message>
        <source>Scale a point of %1</source>
        <translation>Punkt von %1 skalieren</translation>
    </message>
    <message>
        <source>Scale %1 points of %2</source>
        <translation>%1 Punkte von %2 skalieren</translation>
    </message>
    <message>
        <source>A Tcb segment beside points that are not selected may bend.</source>
        <translation>Neben nicht ausgewählten Punkten kann sich ein TCB-Abschnitt verbiegen.</translation>
    </message>
</context>
</TS>
