<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Background</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Choices</name>
    <message>
        <source>gradient</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>grey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>terrain</source>
        <translation>Gelände</translation>
    </message>
    <message>
        <source>plain</source>
        <translation>einfach</translation>
    </message>
    <message>
        <source>engineering</source>
        <translation>technisch (12.5k)</translation>
    </message>
    <message>
        <source>powers</source>
        <translation>Zehnerpotenzen</translation>
    </message>
    <message>
        <source>date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>set</source>
        <translation>fest</translation>
    </message>
    <message>
        <source>fitted</source>
        <translation>passend</translation>
    </message>
    <message>
        <source>round</source>
        <translation>rund</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONEN</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>Needs</source>
        <translation>Braucht</translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation>Nicht mit</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Diese Hilfe ausgeben und beenden</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>unerwartetes Argument: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>unerwartete Argumente: %1</translation>
    </message>
    <message>
        <source>%1 requires %2</source>
        <translation>%1 braucht %2</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 und %2 schließen einander aus</translation>
    </message>
    <message>
        <source>%1: Value %2 not in range %3 to %4</source>
        <translation>%1: Der Wert %2 liegt nicht zwischen %3 und %4</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1: es fehlt %2 × %3</translation>
    </message>
    <message>
        <source>%1: At Most %2 required but received %3</source>
        <translation>%1: höchstens %2 erlaubt, %3 angegeben</translation>
    </message>
    <message>
        <source>Could not convert: %1 = %2</source>
        <translation>%1: „%2“ ist ungültig</translation>
    </message>
    <message>
        <source>%1 was given a disallowed flag override</source>
        <translation>%1 nimmt keinen Wert</translation>
    </message>
    <message>
        <source>%1: Should be true/false or a number</source>
        <translation>%1: true, false oder eine Zahl erwartet</translation>
    </message>
    <message>
        <source>Without data the viewer shows a sample terrain.</source>
        <translation>Ohne Daten wird ein Beispielgelände gezeigt.</translation>
    </message>
    <message>
        <source>Mouse:</source>
        <translation>Maus:</translation>
    </message>
    <message>
        <source>Keys:</source>
        <translation>Tasten:</translation>
    </message>
    <message>
        <source>Exit status: 0 for success, 2 with one line that says what is wrong.</source>
        <translation>Rückgabewert: 0 bei Erfolg, sonst 2 und eine Zeile, die den Fehler nennt.</translation>
    </message>
    <message>
        <source>%1 and %2 exclude each other</source>
        <translation>%1 und %2 schließen einander aus</translation>
    </message>
    <message>
        <source>Dots per inch that texts, lines and points are sized for (96)</source>
        <translation>Auflösung in Punkten je Zoll, nach der sich Texte, Linien und Punkte richten (96)</translation>
    </message>
    <message>
        <source>Factor on the size of texts, lines and points (1)</source>
        <translation>Faktor für die Größe von Texten, Linien und Punkten (1)</translation>
    </message>
    <message>
        <source>How much finer it is drawn, for soft edges: 1 to 4 (2)</source>
        <translation>Wievielmal so fein gezeichnet wird, für weiche Kanten: 1 bis 4 (2)</translation>
    </message>
    <message>
        <source>Leave the background out</source>
        <translation>Hintergrund weglassen</translation>
    </message>
    <message>
        <source>List the formats of files that can be read and written</source>
        <translation>Dateiformate auflisten, die gelesen und geschrieben werden</translation>
    </message>
    <message>
        <source>Band of a raster (1)</source>
        <translation>Band eines Rasters (1)</translation>
    </message>
    <message>
        <source>Part of the files that alone is read</source>
        <translation>Ausschnitt, der allein gelesen wird</translation>
    </message>
    <message>
        <source>Columns of x, y and z in tables, by numbers or names; all: a matrix of values</source>
        <translation>Spalten von x, y und z in Tabellen, als Nummern oder Namen; all: eine Matrix von Werten</translation>
    </message>
    <message>
        <source>Decimal mark of tables: point or comma</source>
        <translation>Dezimalzeichen von Tabellen: point oder comma</translation>
    </message>
    <message>
        <source>How a grid is made of scattered points: linear, nearest or inverse (linear)</source>
        <translation>Wie aus verstreuten Punkten ein Gitter wird: linear, nearest oder inverse (linear)</translation>
    </message>
    <message>
        <source>Cell size of such a grid (from the density of the points)</source>
        <translation>Zellgröße eines solchen Gitters (nach der Dichte der Punkte)</translation>
    </message>
    <message>
        <source>How far a point reaches in such a grid; the longest edge of a triangle where it is linear</source>
        <translation>Wie weit ein Punkt in einem solchen Gitter reicht; bei linear die längste Dreieckskante</translation>
    </message>
    <message>
        <source>Side from which the 3-D plot is seen: 0 beyond the large end of X, 90 of Y (45)</source>
        <translation>Seite, von der das 3D-Diagramm gesehen wird: 0 vom großen Ende von X, 90 von dem von Y (45)</translation>
    </message>
    <message>
        <source>Height from which the 3-D plot is seen, -90 to 90: 90 from above (25.26)</source>
        <translation>Höhe, aus der das 3D-Diagramm gesehen wird, -90 bis 90: 90 von oben (25.26)</translation>
    </message>
    <message>
        <source>How many times as large the plot is shown (1)</source>
        <translation>Wievielmal so groß das Diagramm gezeigt wird (1)</translation>
    </message>
    <message>
        <source>Opacity of a surface, 0 to 1; may be repeated, for the files in their order (1, then 0.7)</source>
        <translation>Deckkraft einer Fläche, 0 bis 1; mehrfach möglich, in der Reihenfolge der Dateien (1, dann 0.7)</translation>
    </message>
    <message>
        <source>Colour of a surface, or values where these give the colours; may be repeated, for the files in their order (values, then one colour each)</source>
        <translation>Farbe einer Fläche, oder values für Farben nach den Werten; mehrfach möglich, in der Reihenfolge der Dateien (values, dann je eine Farbe)</translation>
    </message>
    <message>
        <source>Files, settings and view that the window has saved; what else is given counts more</source>
        <translation>Dateien, Einstellungen und Ansicht, die das Fenster gespeichert hat; andere Angaben gehen vor</translation>
    </message>
    <message>
        <source>Read the files again when they change</source>
        <translation>Dateien neu einlesen, wenn sie sich ändern</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Version ausgeben und beenden</translation>
    </message>
    <message>
        <source>Language of the program: en, de or ja (the one of the desktop)</source>
        <translation>Sprache des Programms: en, de oder ja (die des Desktops)</translation>
    </message>
    <message>
        <source>Grids of points, the second and so on over the first: ESRI ASCII grid, Surfer grid, points, matrix, or what GDAL reads; - for the standard input</source>
        <translation>Gitter von Punkten, das zweite und weitere über dem ersten: ESRI-ASCII-Gitter, Surfer-Gitter, Punkte, Matrix oder was GDAL liest; - steht für die Standardeingabe</translation>
    </message>
    <message>
        <source>Grids of points, the second and so on over the first: ESRI ASCII grid, Surfer grid, points, matrix; - for the standard input</source>
        <translation>Gitter von Punkten, das zweite und weitere über dem ersten: ESRI-ASCII-Gitter, Surfer-Gitter, Punkte, Matrix; - steht für die Standardeingabe</translation>
    </message>
    <message>
        <source>Formula such as &quot;sin(x)*cos(y)&quot;</source>
        <translation>Formel wie &quot;sin(x)*cos(y)&quot;</translation>
    </message>
    <message>
        <source>Write the plot to a file of the format that its name ends in, or - for PNG to the standard output; needs no display</source>
        <translation>Diagramm in eine Datei schreiben, deren Format aus der Endung folgt; - schreibt PNG auf die Standardausgabe; braucht keinen Bildschirm</translation>
    </message>
    <message>
        <source>Grid that is subtracted from the first, at its points</source>
        <translation>Gitter, das vom ersten an dessen Punkten abgezogen wird</translation>
    </message>
    <message>
        <source>Values of x, -3:3:61 without</source>
        <translation>Werte von x, sonst -3:3:61</translation>
    </message>
    <message>
        <source>Values of y, -3:3:61 without</source>
        <translation>Werte von y, sonst -3:3:61</translation>
    </message>
    <message>
        <source>Size of the picture or the window&apos;s plot in pixels, 1200x800 without</source>
        <translation>Größe des Bildes oder des Diagramms im Fenster in Pixeln, sonst 1200x800</translation>
    </message>
    <message>
        <source>0: 3-D plot, 1: XY, 2: YZ, 3: XZ</source>
        <translation>0: 3D-Diagramm, 1: XY, 2: YZ, 3: XZ</translation>
    </message>
    <message>
        <source>Measure points, x y z in each line; may be repeated, a group for each file or each name in it</source>
        <translation>Messpunkte, je Zeile x y z; mehrfach möglich, eine Gruppe je Datei oder je Name darin</translation>
    </message>
    <message>
        <source>Points of a curve, x y z in each line; may be repeated</source>
        <translation>Punkte einer Kurve, je Zeile x y z; mehrfach möglich</translation>
    </message>
    <message>
        <source>Trace the surface at this pixel of the picture</source>
        <translation>Punkt der Fläche an diesem Pixel des Bildes zeigen</translation>
    </message>
    <message>
        <source>expected WIDTHxHEIGHT of 1 to %1 each, found %2</source>
        <translation>WIDTHxHEIGHT von je 1 bis %1 erwartet, %2 gefunden</translation>
    </message>
    <message>
        <source>expected X,Y in pixels, found %1</source>
        <translation>X,Y in Pixeln erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>expected a number from %1 to %2, found %3</source>
        <translation>Zahl von %1 bis %2 erwartet, %3 gefunden</translation>
    </message>
    <message>
        <source>at most %1 with %2 dots per inch, found %3</source>
        <translation>höchstens %1 bei %2 Punkten je Zoll, %3 gefunden</translation>
    </message>
    <message>
        <source>only the 3-D plot is turned</source>
        <translation>nur das 3D-Diagramm lässt sich drehen</translation>
    </message>
    <message>
        <source>expected a number above 0, found %1</source>
        <translation>Zahl über 0 erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>expected point or comma, found %1</source>
        <translation>point oder comma erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>Shows a surface z = f(x, y) as a 3-D plot.</source>
        <translation>Zeigt eine Fläche z = f(x, y) als 3D-Diagramm.</translation>
    </message>
    <message>
        <source>%1; kivo-viewer --help lists the options</source>
        <translation>%1; kivo-viewer --help listet die Optionen auf</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>expected four numbers x0:x1:y0:y1 that rise from x0 to x1 and from y0 to y1, found %1</source>
        <translation>vier Zahlen x0:x1:y0:y1 erwartet, die von x0 nach x1 und von y0 nach y1 steigen, %1 gefunden</translation>
    </message>
    <message>
        <source>expected linear, nearest or inverse, found %1</source>
        <translation>linear, nearest oder inverse erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>expected the columns of x, y and z, such as 1,2,4, or all for a matrix, found %1</source>
        <translation>Spalten von x, y und z erwartet, etwa 1,2,4, oder all für eine Matrix, %1 gefunden</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>%1 erwartet, %2 gefunden</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message numerus="yes">
        <source>given %1 times for %n surface(s)</source>
        <translation>
            <numerusform>%1-mal angegeben für %n Fläche</numerusform>
            <numerusform>%1-mal angegeben für %n Flächen</numerusform>
        </translation>
    </message>
    <message>
        <source>Line over the plane of x and y whose heights are shown</source>
        <translation>Linie über der Ebene von x und y, längs der die Höhen gezeigt werden</translation>
    </message>
    <message>
        <source>Write the heights along that line as a table of distance, x, y, z, and z2 and so on of other surfaces, or - for the standard output; needs no display</source>
        <translation>Höhen längs dieser Linie als Tabelle schreiben: distance, x, y, z, und z2 und so weiter von anderen Flächen; - ist die Standardausgabe; braucht keinen Bildschirm</translation>
    </message>
    <message>
        <source>expected X0:Y0:X1:Y1, found &quot;%1&quot;</source>
        <translation>X0:Y0:X1:Y1 erwartet, „%1“ gefunden</translation>
    </message>
    <message>
        <source>expected two different points X0:Y0:X1:Y1, found &quot;%1&quot;</source>
        <translation>zwei verschiedene Punkte X0:Y0:X1:Y1 erwartet, „%1“ gefunden</translation>
    </message>
    <message>
        <source>there is no surface</source>
        <translation>es gibt keine Fläche</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message>
        <source>unknown header entry %1</source>
        <translation>unbekannter Eintrag %1 im Kopf</translation>
    </message>
    <message>
        <source>a second entry %1</source>
        <translation>zweiter Eintrag %1</translation>
    </message>
    <message>
        <source>expected one value after %1</source>
        <translation>genau ein Wert nach %1 erwartet</translation>
    </message>
    <message>
        <source>not a number: %1</source>
        <translation>keine Zahl: %1</translation>
    </message>
    <message>
        <source>%1 must be a whole number of at least 2</source>
        <translation>%1 muss eine ganze Zahl ab 2 sein</translation>
    </message>
    <message>
        <source>%1 must be positive</source>
        <translation>%1 muss positiv sein</translation>
    </message>
    <message>
        <source>no values after the header</source>
        <translation>keine Werte nach dem Kopf</translation>
    </message>
    <message>
        <source>the header lacks %1</source>
        <translation>im Kopf fehlt %1</translation>
    </message>
    <message>
        <source>too many points; at most %1 can be shown</source>
        <translation>zu viele Punkte; höchstens %1 sind darstellbar</translation>
    </message>
    <message>
        <source>the cells reach beyond single precision</source>
        <translation>die Zellen reichen über einfache Genauigkeit hinaus</translation>
    </message>
    <message>
        <source>the cells are too small for coordinates of this size</source>
        <translation>die Zellen sind für so große Koordinaten zu klein</translation>
    </message>
    <message>
        <source>more than %1 rows</source>
        <translation>mehr als %1 Zeilen</translation>
    </message>
    <message>
        <source>expected %1 values, found %2</source>
        <translation>%1 Werte erwartet, %2 gefunden</translation>
    </message>
    <message>
        <source>expected %1 rows, found %2</source>
        <translation>%1 Zeilen erwartet, %2 gefunden</translation>
    </message>
    <message>
        <source>no place has a value of both</source>
        <translation>nirgends haben beide einen Wert</translation>
    </message>
    <message>
        <source>cannot open it: %1</source>
        <translation>lässt sich nicht öffnen: %1</translation>
    </message>
    <message>
        <source>cannot read it: %1</source>
        <translation>lässt sich nicht lesen: %1</translation>
    </message>
    <message>
        <source>larger than 1 GiB</source>
        <translation>größer als 1 GiB</translation>
    </message>
    <message>
        <source>the raster is rotated</source>
        <translation>das Raster ist gedreht</translation>
    </message>
    <message>
        <source>no raster band in it</source>
        <translation>enthält kein Rasterband</translation>
    </message>
    <message>
        <source>several variables; open one of them by its whole name: %1</source>
        <translation>mehrere Variablen; eine davon mit ganzem Namen öffnen: %1</translation>
    </message>
    <message>
        <source>there is no band %1; the last one is %2</source>
        <translation>Band %1 gibt es nicht; das letzte ist %2</translation>
    </message>
    <message>
        <source>every %1st of %2 x %3 points</source>
        <translation>jeder %1. von %2 x %3 Punkten</translation>
    </message>
    <message>
        <source>every %1rd of %2 x %3 points</source>
        <translation>jeder %1. von %2 x %3 Punkten</translation>
    </message>
    <message>
        <source>every %1th of %2 x %3 points</source>
        <translation>jeder %1. von %2 x %3 Punkten</translation>
    </message>
    <message>
        <source>band %1 of %2</source>
        <translation>Band %1 von %2</translation>
    </message>
    <message>
        <source>there are values of %1 that lie too close to each other for the distance between the first and the last</source>
        <translation>Werte von %1 liegen für den Abstand vom ersten zum letzten zu dicht beieinander</translation>
    </message>
    <message>
        <source>a finite number is needed here: %1</source>
        <translation>hier ist eine endliche Zahl nötig: %1</translation>
    </message>
    <message>
        <source>number beyond single precision: %1</source>
        <translation>Zahl außerhalb einfacher Genauigkeit: %1</translation>
    </message>
    <message>
        <source>a surface needs at least 2 x 2 points, and of these %1 x %2 lie in the region</source>
        <translation>eine Fläche braucht mindestens 2 x 2 Punkte, im Ausschnitt liegen %1 x %2</translation>
    </message>
    <message>
        <source>a surface needs at least 2 x 2 points, found %1 x %2</source>
        <translation>eine Fläche braucht mindestens 2 x 2 Punkte, %1 x %2 gefunden</translation>
    </message>
    <message>
        <source>every value is missing</source>
        <translation>alle Werte fehlen</translation>
    </message>
    <message>
        <source>Points: x, y and z are the first three columns</source>
        <translation>Punkte: x, y und z sind die ersten drei Spalten</translation>
    </message>
    <message>
        <source>A matrix of values</source>
        <translation>Eine Matrix von Werten</translation>
    </message>
    <message>
        <source>%1 numbers in each line are points, or a matrix of values; --columns 1,2,3 or --columns all says it</source>
        <translation>%1 Zahlen je Zeile sind Punkte oder eine Matrix von Werten; --columns 1,2,3 oder --columns all legt es fest</translation>
    </message>
    <message>
        <source>no data</source>
        <translation>keine Daten</translation>
    </message>
    <message>
        <source>the x values must rise or fall from column to column</source>
        <translation>die x-Werte müssen von Spalte zu Spalte steigen oder fallen</translation>
    </message>
    <message>
        <source>no values after the x values</source>
        <translation>keine Werte nach den x-Werten</translation>
    </message>
    <message>
        <source>the y values must rise or fall from row to row</source>
        <translation>die y-Werte müssen von Zeile zu Zeile steigen oder fallen</translation>
    </message>
    <message>
        <source>%1 of %2 x %3 points are not in the file</source>
        <translation>%1 von %2 x %3 Punkten fehlen in der Datei</translation>
    </message>
    <message>
        <source>x, y and z from the columns %1, %2 and %3 of %4</source>
        <translation>x, y und z aus den Spalten %1, %2 und %3 von %4</translation>
    </message>
    <message numerus="yes">
        <source>expected x, y and z, found %n value(s)</source>
        <translation>
            <numerusform>x, y und z erwartet, %n Wert gefunden</numerusform>
            <numerusform>x, y und z erwartet, %n Werte gefunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>expected %1 values, found %n value(s)</source>
        <translation>
            <numerusform>%1 Werte erwartet, %n gefunden</numerusform>
            <numerusform>%1 Werte erwartet, %n gefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>no points</source>
        <translation>keine Punkte</translation>
    </message>
    <message>
        <source>no points after the column names</source>
        <translation>keine Punkte nach den Spaltennamen</translation>
    </message>
    <message>
        <source>nearest</source>
        <translation>nächster Punkt</translation>
    </message>
    <message>
        <source>linear</source>
        <translation>linear</translation>
    </message>
    <message>
        <source>inverse</source>
        <translation>inverse Distanz</translation>
    </message>
    <message>
        <source>the sample terrain is missing from the program</source>
        <translation>das Beispielgelände fehlt im Programm</translation>
    </message>
    <message>
        <source>the points lie too close to each other for triangles</source>
        <translation>die Punkte liegen für Dreiecke zu dicht beieinander</translation>
    </message>
    <message>
        <source>no grid can be made of the points</source>
        <translation>aus den Punkten lässt sich kein Gitter bilden</translation>
    </message>
    <message>
        <source>a surface needs at least three points that do not lie on a line</source>
        <translation>eine Fläche braucht mindestens drei Punkte, die nicht auf einer Geraden liegen</translation>
    </message>
    <message>
        <source>%1 scattered points, %2 on cells of %3</source>
        <translation>%1 verstreute Punkte, %2, Zellgröße %3</translation>
    </message>
    <message>
        <source>the ranges of x and y must rise</source>
        <translation>die Bereiche von x und y müssen steigen</translation>
    </message>
    <message>
        <source>the file ends before %1</source>
        <translation>Dateiende statt: %1</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>%1 erwartet, %2 gefunden</translation>
    </message>
    <message>
        <source>the range of x</source>
        <translation>Bereich von x</translation>
    </message>
    <message>
        <source>the range of y</source>
        <translation>Bereich von y</translation>
    </message>
    <message>
        <source>the range of z</source>
        <translation>Bereich von z</translation>
    </message>
    <message>
        <source>the last value</source>
        <translation>letzter Wert</translation>
    </message>
    <message>
        <source>the number of columns</source>
        <translation>Anzahl der Spalten</translation>
    </message>
    <message>
        <source>the number of rows</source>
        <translation>Anzahl der Zeilen</translation>
    </message>
    <message>
        <source>more than %1 values</source>
        <translation>mehr als %1 Werte</translation>
    </message>
    <message>
        <source>the file is cut off</source>
        <translation>die Datei ist abgeschnitten</translation>
    </message>
    <message>
        <source>values come before the size of the grid</source>
        <translation>die Werte stehen vor der Größe des Gitters</translation>
    </message>
    <message>
        <source>%1 without names</source>
        <translation>%1 ohne Namen</translation>
    </message>
    <message>
        <source>the comma of %1 may be a decimal mark or part thousands; --decimal comma or --decimal point says it</source>
        <translation>das Komma in %1 kann Dezimalzeichen oder Tausendertrenner sein; --decimal comma oder --decimal point legt es fest</translation>
    </message>
    <message>
        <source>Commas are decimal marks</source>
        <translation>Kommas sind Dezimalzeichen</translation>
    </message>
    <message>
        <source>there is no column %1; its columns are %2</source>
        <translation>eine Spalte %1 gibt es nicht; vorhanden: %2</translation>
    </message>
    <message numerus="yes">
        <source>expected x, y and z, found %n value(s); --columns says which of them these are</source>
        <translation>
            <numerusform>x, y und z erwartet, %n Wert gefunden; --columns legt fest, welche es sind</numerusform>
            <numerusform>x, y und z erwartet, %n Werte gefunden; --columns legt fest, welche es sind</numerusform>
        </translation>
    </message>
    <message>
        <source>this is not a text file in UTF-8 or ASCII</source>
        <translation>dies ist keine Textdatei in UTF-8 oder ASCII</translation>
    </message>
    <message>
        <source>Band %1</source>
        <translation>Band %1</translation>
    </message>
    <message>
        <source>%1 bands; --band says which</source>
        <translation>%1 Bänder; --band legt fest, welches</translation>
    </message>
    <message>
        <source>the method %1 is GDAL&apos;s, and this program was built without it</source>
        <translation>das Verfahren %1 gehört zu GDAL, und dieses Programm wurde ohne GDAL gebaut</translation>
    </message>
    <message>
        <source>the points are scattered; --grid says how a grid is made of them</source>
        <translation>die Punkte sind verstreut; --grid legt fest, wie daraus ein Gitter wird</translation>
    </message>
    <message>
        <source>its cells have no size or place</source>
        <translation>seine Zellen haben keine Größe oder keinen Ort</translation>
    </message>
</context>
<context>
    <name>Formats</name>
    <message>
        <source>Grids read:</source>
        <translation>Lesbare Gitter:</translation>
    </message>
    <message>
        <source>ESRI ASCII grid</source>
        <translation>ESRI-ASCII-Gitter</translation>
    </message>
    <message>
        <source>Surfer grid, versions 6 and 7</source>
        <translation>Surfer-Gitter, Versionen 6 und 7</translation>
    </message>
    <message>
        <source>Table of points x, y, z</source>
        <translation>Tabelle von Punkten x, y, z</translation>
    </message>
    <message>
        <source>Matrix of values</source>
        <translation>Matrix von Werten</translation>
    </message>
    <message>
        <source>Grids read by GDAL:</source>
        <translation>Mit GDAL lesbare Gitter:</translation>
    </message>
    <message>
        <source>Pictures written:</source>
        <translation>Bildformate:</translation>
    </message>
</context>
<context>
    <name>Formula</name>
    <message>
        <source>the range is too narrow for %1 values</source>
        <translation>der Bereich ist zu eng für %1 Werte</translation>
    </message>
    <message>
        <source>%1 at position %2</source>
        <translation>%1 an Stelle %2</translation>
    </message>
    <message>
        <source>formula: one value is needed, not several parted by commas</source>
        <translation>Formel: ein einziger Wert ist nötig, nicht mehrere mit Kommas dazwischen</translation>
    </message>
    <message>
        <source>expected from:to:count, found %1</source>
        <translation>von:bis:anzahl erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>expected two numbers in %1</source>
        <translation>zwei Zahlen erwartet in %1</translation>
    </message>
    <message>
        <source>the range is empty: %1</source>
        <translation>der Bereich ist leer: %1</translation>
    </message>
    <message>
        <source>expected a count from 2 to %1 in %2</source>
        <translation>Anzahl von 2 bis %1 erwartet in %2</translation>
    </message>
    <message>
        <source>formula: %1</source>
        <translation>Formel: %1</translation>
    </message>
    <message>
        <source>formula: no finite value in this range</source>
        <translation>Formel: kein endlicher Wert in diesem Bereich</translation>
    </message>
</context>
<context>
    <name>Input</name>
    <message>
        <source>Arrows</source>
        <translation>Pfeiltasten</translation>
    </message>
    <message>
        <source>Turn the 3-D plot by five degrees, or move a flat one</source>
        <translation>Um fünf Grad drehen, ebenes verschieben</translation>
    </message>
    <message>
        <source>Shift+arrows</source>
        <translation>Umschalt+Pfeiltasten</translation>
    </message>
    <message>
        <source>Move the plot</source>
        <translation>Diagramm verschieben</translation>
    </message>
    <message>
        <source>Plus, minus</source>
        <translation>Plus, Minus</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Vergrößern, verkleinern</translation>
    </message>
    <message>
        <source>Left button</source>
        <translation>Linke Taste</translation>
    </message>
    <message>
        <source>Turn the 3-D plot like a turntable</source>
        <translation>3D-Diagramm wie auf einem Drehteller drehen</translation>
    </message>
    <message>
        <source>Right button</source>
        <translation>Rechte Taste</translation>
    </message>
    <message>
        <source>Turn the 3-D plot freely</source>
        <translation>3D-Diagramm frei drehen</translation>
    </message>
    <message>
        <source>Shift + either, or middle</source>
        <translation>Umschalt + Taste, Mitte</translation>
    </message>
    <message>
        <source>Ctrl + either</source>
        <translation>Strg + Taste</translation>
    </message>
    <message>
        <source>Zoom: down enlarges, up shrinks</source>
        <translation>Zoomen: abwärts größer, aufwärts kleiner</translation>
    </message>
    <message>
        <source>Double click</source>
        <translation>Doppelklick</translation>
    </message>
    <message>
        <source>Bring what is there to the middle</source>
        <translation>Die Stelle in die Mitte rücken</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Rad</translation>
    </message>
    <message>
        <source>Zoom at the pointer</source>
        <translation>Am Zeiger zoomen</translation>
    </message>
    <message>
        <source>Move, while tracing</source>
        <translation>Zeiger bewegen</translation>
    </message>
    <message>
        <source>Show the point of the surface under the pointer</source>
        <translation>Punkt der Fläche unter dem Zeiger zeigen</translation>
    </message>
    <message>
        <source>Drop a file</source>
        <translation>Datei ablegen</translation>
    </message>
    <message>
        <source>Open it; of several the others lie over the first</source>
        <translation>Öffnen; weitere liegen über der ersten</translation>
    </message>
    <message>
        <source>Shift + drop a file</source>
        <translation>Umschalt + Datei ablegen</translation>
    </message>
    <message>
        <source>Lay it over what is shown</source>
        <translation>Über das Gezeigte legen</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>Left button, with the profile</source>
        <translation>Linke Taste, mit Profil</translation>
    </message>
    <message>
        <source>Draw the line in the flat plot of XY</source>
        <translation>Linie im ebenen Diagramm XY ziehen</translation>
    </message>
</context>
<context>
    <name>Lists</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 oder %2</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>How many times as long Z is drawn as X and Y</source>
        <translation>Wievielmal so lang wie X und Y ist Z gezeichnet</translation>
    </message>
    <message>
        <source>cannot draw: %1</source>
        <translation>Zeichnen nicht möglich: %1</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Surfaces</source>
        <translation>Flächen</translation>
    </message>
    <message>
        <source>Points and curves</source>
        <translation>Punkte und Kurven</translation>
    </message>
    <message>
        <source>Reset all settings</source>
        <translation>Alle Einstellungen zurücksetzen</translation>
    </message>
    <message>
        <source>Exaggeration %1</source>
        <translation>Überhöhung %1</translation>
    </message>
    <message>
        <source>Keys and mouse</source>
        <translation>Tasten und Maus</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Keys, continued</source>
        <translation>Tasten, Fortsetzung</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>About Kivo Viewer</source>
        <translation>Über Kivo Viewer</translation>
    </message>
    <message>
        <source>Shows surfaces z = f(x, y), drawn by the library KivoFunctionPlotter.</source>
        <translation>Zeigt Flächen z = f(x, y), gezeichnet von der Bibliothek KivoFunctionPlotter.</translation>
    </message>
    <message>
        <source>MIT licence.</source>
        <translation>MIT-Lizenz.</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>&amp;Breite</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>&amp;Height</source>
        <translation>&amp;Höhe</translation>
    </message>
    <message>
        <source>&amp;Resolution</source>
        <translation>&amp;Auflösung</translation>
    </message>
    <message>
        <source>dots per inch</source>
        <translation>Punkte je Zoll</translation>
    </message>
    <message>
        <source>Texts, lines and points keep their size on paper: with more dots per inch they have more pixels</source>
        <translation>Texte, Linien und Punkte behalten ihre Größe auf Papier: bei mehr Punkten je Zoll haben sie mehr Pixel</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Grids of points and sessions</source>
        <translation>Gitter und Sitzungen</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Speicher reicht nicht aus.</translation>
    </message>
    <message>
        <source>Open a grid of points</source>
        <translation>Gitter öffnen</translation>
    </message>
    <message>
        <source>Add surfaces</source>
        <translation>Flächen hinzufügen</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Noch keine</translation>
    </message>
    <message>
        <source>Add curves</source>
        <translation>Kurven hinzufügen</translation>
    </message>
    <message>
        <source>Add measure points</source>
        <translation>Messpunkte hinzufügen</translation>
    </message>
    <message>
        <source>Points x, y, z</source>
        <translation>Punkte x, y, z</translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Copied the picture</source>
        <translation>Bild kopiert</translation>
    </message>
    <message>
        <source>the printer cannot be used</source>
        <translation>der Drucker lässt sich nicht verwenden</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>Sitzungen</translation>
    </message>
    <message>
        <source>Save the session</source>
        <translation>Sitzung speichern</translation>
    </message>
    <message>
        <source>Read again</source>
        <translation>Neu eingelesen</translation>
    </message>
    <message>
        <source>Subtract a grid of points</source>
        <translation>Gitter abziehen</translation>
    </message>
    <message>
        <source>The first surface is of no file</source>
        <translation>Die erste Fläche stammt aus keiner Datei</translation>
    </message>
    <message>
        <source>Reading...</source>
        <translation>Wird gelesen...</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Save the profile</source>
        <translation>Profil speichern</translation>
    </message>
    <message>
        <source>Tables</source>
        <translation>Tabellen</translation>
    </message>
    <message>
        <source>Save the picture of the profile</source>
        <translation>Bild des Profils speichern</translation>
    </message>
    <message>
        <source>it cannot be written</source>
        <translation>lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>Drag a rectangle with the left button; Escape ends it</source>
        <translation>Mit der linken Taste ein Rechteck ziehen; Escape beendet es</translation>
    </message>
    <message>
        <source>Preparing the plot...</source>
        <translation>Der Plot wird vorbereitet...</translation>
    </message>
    <message>
        <source>Drawing the picture...</source>
        <translation>Das Bild wird gezeichnet...</translation>
    </message>
</context>
<context>
    <name>Menu</name>
    <message>
        <source>%1, or not</source>
        <translation>%1 (ein/aus)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open a grid of points, or a session</source>
        <translation>Gitter oder Sitzung öffnen</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Open a grid from before</source>
        <translation>Früher geöffnetes Gitter öffnen</translation>
    </message>
    <message>
        <source>Add sur&amp;face...</source>
        <translation>F&amp;läche hinzufügen...</translation>
    </message>
    <message>
        <source>Lay other grids of points over the one that is shown</source>
        <translation>Weitere Gitter über das gezeigte legen</translation>
    </message>
    <message>
        <source>Su&amp;btract a grid...</source>
        <translation>&amp;Gitter abziehen...</translation>
    </message>
    <message>
        <source>Show by how much the first surface differs from another grid</source>
        <translation>Abweichung von einem anderen Gitter zeigen</translation>
    </message>
    <message>
        <source>Add measure &amp;points...</source>
        <translation>&amp;Messpunkte hinzufügen...</translation>
    </message>
    <message>
        <source>Add measure points</source>
        <translation>Messpunkte hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;curves...</source>
        <translation>&amp;Kurven hinzufügen...</translation>
    </message>
    <message>
        <source>Add curves</source>
        <translation>Kurven hinzufügen</translation>
    </message>
    <message>
        <source>Sa&amp;ve session...</source>
        <translation>S&amp;itzung speichern...</translation>
    </message>
    <message>
        <source>Save files, settings and view, to be opened again</source>
        <translation>Dateien, Einstellungen und Ansicht speichern</translation>
    </message>
    <message>
        <source>Read the files again</source>
        <translation>Dateien neu einlesen</translation>
    </message>
    <message>
        <source>&amp;Watch files</source>
        <translation>Dateien überwa&amp;chen</translation>
    </message>
    <message>
        <source>Read files again when they change</source>
        <translation>Dateien neu einlesen, wenn sie sich ändern</translation>
    </message>
    <message>
        <source>&amp;Save picture...</source>
        <translation>Bild &amp;speichern...</translation>
    </message>
    <message>
        <source>Save the plot as a picture of any size</source>
        <translation>Diagramm als Bild beliebiger Größe speichern</translation>
    </message>
    <message>
        <source>Cop&amp;y picture</source>
        <translation>Bild ko&amp;pieren</translation>
    </message>
    <message>
        <source>Copy the plot to the clipboard</source>
        <translation>Diagramm in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>D&amp;rucken...</translation>
    </message>
    <message>
        <source>Print the plot</source>
        <translation>Diagramm drucken</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>End the program</source>
        <translation>Programm beenden</translation>
    </message>
    <message>
        <source>&amp;Plot</source>
        <translation>Dia&amp;gramm</translation>
    </message>
    <message>
        <source>&amp;3-D plot</source>
        <translation>&amp;3D-Diagramm</translation>
    </message>
    <message>
        <source>Show the 3-D plot</source>
        <translation>3D-Diagramm zeigen</translation>
    </message>
    <message>
        <source>&amp;XY projection</source>
        <translation>&amp;XY-Projektion</translation>
    </message>
    <message>
        <source>Show the flat plot of XY</source>
        <translation>Ebenes Diagramm XY zeigen</translation>
    </message>
    <message>
        <source>&amp;YZ projection</source>
        <translation>&amp;YZ-Projektion</translation>
    </message>
    <message>
        <source>Show the flat plot of YZ</source>
        <translation>Ebenes Diagramm YZ zeigen</translation>
    </message>
    <message>
        <source>X&amp;Z projection</source>
        <translation>X&amp;Z-Projektion</translation>
    </message>
    <message>
        <source>Show the flat plot of XZ</source>
        <translation>Ebenes Diagramm XZ zeigen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Reset view</source>
        <translation>Ansicht &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Undo turning, moving and zooming</source>
        <translation>Drehen, Verschieben und Zoomen rückgängig machen</translation>
    </message>
    <message>
        <source>Sur&amp;faces</source>
        <translation>&amp;Flächen</translation>
    </message>
    <message>
        <source>Show or hide the list of surfaces</source>
        <translation>Liste der Flächen zeigen oder verbergen</translation>
    </message>
    <message>
        <source>&amp;Points and curves</source>
        <translation>&amp;Punkte und Kurven</translation>
    </message>
    <message>
        <source>Show or hide the list of points and curves</source>
        <translation>Liste der Punkte und Kurven zeigen oder verbergen</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>&amp;%1 %2...</source>
        <translation>&amp;%1 %2...</translation>
    </message>
    <message>
        <source>Go to the settings: %1</source>
        <translation>Zu den Einstellungen: %1</translation>
    </message>
    <message>
        <source>Settings &amp;panel</source>
        <translation>&amp;Leiste der Einstellungen</translation>
    </message>
    <message>
        <source>Show or hide the settings</source>
        <translation>Einstellungen zeigen oder verbergen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Take the last change of a setting back</source>
        <translation>Letzte Änderung einer Einstellung zurücknehmen</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Make it again</source>
        <translation>Zurückgenommene Änderung wiederholen</translation>
    </message>
    <message>
        <source>&amp;Reset all settings</source>
        <translation>&amp;Alle Einstellungen zurücksetzen</translation>
    </message>
    <message>
        <source>Take all settings back</source>
        <translation>Alle Einstellungen zurücknehmen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keys and mouse</source>
        <translation>&amp;Tasten und Maus</translation>
    </message>
    <message>
        <source>Tell what keys and mouse do</source>
        <translation>Zeigen, was Tasten und Maus bewirken</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>Tell what this program is</source>
        <translation>Zeigen, was dieses Programm ist</translation>
    </message>
    <message>
        <source>Read a&amp;gain</source>
        <translation>&amp;Neu einlesen</translation>
    </message>
    <message>
        <source>Read &amp;as...</source>
        <translation>&amp;Einlesen als...</translation>
    </message>
    <message>
        <source>See the first lines of the file, and choose how it is read</source>
        <translation>Erste Zeilen der Datei sehen und anders lesen</translation>
    </message>
    <message>
        <source>Profi&amp;le</source>
        <translation>Prof&amp;il</translation>
    </message>
    <message>
        <source>Draw a line in the flat plot of XY and show the heights along it, or not</source>
        <translation>Höhen längs einer Linie zeigen (ein/aus)</translation>
    </message>
    <message>
        <source>&amp;Mark a region</source>
        <translation>&amp;Ausschnitt markieren</translation>
    </message>
    <message>
        <source>Drag a rectangle in the flat plot of XY, to read that part in full detail</source>
        <translation>Ausschnitt im ebenen Diagramm XY ziehen und ganz lesen</translation>
    </message>
    <message>
        <source>Read t&amp;he whole</source>
        <translation>&amp;Wieder das Ganze lesen</translation>
    </message>
    <message>
        <source>Read the first surface&apos;s file without a region</source>
        <translation>Datei der ersten Fläche ohne Ausschnitt lesen</translation>
    </message>
</context>
<context>
    <name>Pictures</name>
    <message>
        <source>a picture&apos;s name must end in %1</source>
        <translation>der Name eines Bildes muss auf %1 enden</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>Standardausgabe</translation>
    </message>
    <message>
        <source>cannot write it: %1</source>
        <translation>lässt sich nicht schreiben: %1</translation>
    </message>
    <message>
        <source>the page cannot be made</source>
        <translation>die Seite lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>es ist keine Datei</translation>
    </message>
    <message>
        <source>JPEG has no transparency; take another format</source>
        <translation>JPEG kennt keine Transparenz; ein anderes Format wählen</translation>
    </message>
</context>
<context>
    <name>Plot</name>
    <message>
        <source>cannot draw: %1</source>
        <translation>Zeichnen nicht möglich: %1</translation>
    </message>
    <message>
        <source>the %1 axis must rise, not go from %2 to %3</source>
        <translation>die %1-Achse muss steigen, nicht von %2 bis %3 gehen</translation>
    </message>
    <message>
        <source>the colours need a wider range than %1</source>
        <translation>die Farben brauchen einen weiteren Bereich als %1</translation>
    </message>
    <message>
        <source>the colours cannot have the range %1</source>
        <translation>die Farben können den Bereich %1 nicht haben</translation>
    </message>
    <message>
        <source>it lies too far from the first surface to be shown with it</source>
        <translation>liegt zu weit von der ersten Fläche entfernt, um mit ihr gezeigt zu werden</translation>
    </message>
    <message>
        <source>it cannot be laid over another surface</source>
        <translation>lässt sich nicht über eine andere Fläche legen</translation>
    </message>
</context>
<context>
    <name>PointsPanel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Click the box to show or hide the points, twice the name to change it; Delete takes them away</source>
        <translation>Kästchen anklicken: Punkte zeigen oder verbergen; Namen doppelklicken: ändern; Entf: entfernen</translation>
    </message>
    <message>
        <source>Click to choose another colour</source>
        <translation>Anklicken, um eine andere Farbe zu wählen</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Colour of %1</source>
        <translation>Farbe von %1</translation>
    </message>
</context>
<context>
    <name>Preview</name>
    <message>
        <source>semicolons</source>
        <translation>Semikolons</translation>
    </message>
    <message>
        <source>commas</source>
        <translation>Kommas</translation>
    </message>
    <message>
        <source>tabs</source>
        <translation>Tabulatoren</translation>
    </message>
    <message>
        <source>blanks</source>
        <translation>Leerzeichen</translation>
    </message>
    <message>
        <source>decimal commas</source>
        <translation>Dezimalkommas</translation>
    </message>
    <message>
        <source>decimal points</source>
        <translation>Dezimalpunkte</translation>
    </message>
    <message>
        <source>A matrix of values: fields between %1, %2</source>
        <translation>Eine Matrix von Werten: Felder zwischen %1, %2</translation>
    </message>
    <message>
        <source>Points: fields between %1, %2</source>
        <translation>Punkte: Felder zwischen %1, %2</translation>
    </message>
    <message>
        <source>Points: fields between %1, %2, names of columns first</source>
        <translation>Punkte: Felder zwischen %1, %2, zuerst Spaltennamen</translation>
    </message>
    <message>
        <source>No text of whole lines</source>
        <translation>Kein Text aus ganzen Zeilen</translation>
    </message>
    <message>
        <source>A grid whose header says how it is read</source>
        <translation>Ein Gitter, dessen Kopf sagt, wie es gelesen wird</translation>
    </message>
</context>
<context>
    <name>ProfilePanel</name>
    <message>
        <source>Press, drag and release the left button in the flat plot of XY: the heights along that line are shown here.</source>
        <translation>Im ebenen Diagramm XY mit der linken Taste eine Linie ziehen: hier stehen die Höhen längs dieser Linie.</translation>
    </message>
    <message>
        <source>Save as &amp;CSV...</source>
        <translation>Als &amp;CSV speichern...</translation>
    </message>
    <message>
        <source>Save as p&amp;icture...</source>
        <translation>Als &amp;Bild speichern...</translation>
    </message>
    <message>
        <source>Distance %1</source>
        <translation>Entfernung %1</translation>
    </message>
</context>
<context>
    <name>ReadAsDialog</name>
    <message>
        <source>Read as</source>
        <translation>Einlesen als</translation>
    </message>
    <message>
        <source>&amp;Table of</source>
        <translation>&amp;Tabelle von</translation>
    </message>
    <message>
        <source>What it seems to be</source>
        <translation>Wie es scheint</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Values, a matrix</source>
        <translation>Werte, eine Matrix</translation>
    </message>
    <message>
        <source>Column of &amp;x</source>
        <translation>Spalte von &amp;x</translation>
    </message>
    <message>
        <source>Column of &amp;y</source>
        <translation>Spalte von &amp;y</translation>
    </message>
    <message>
        <source>Column of &amp;z</source>
        <translation>Spalte von &amp;z</translation>
    </message>
    <message>
        <source>&amp;Decimal mark</source>
        <translation>&amp;Dezimalzeichen</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>Komma</translation>
    </message>
    <message>
        <source>&amp;Grid of scattered points</source>
        <translation>&amp;Gitter verstreuter Punkte</translation>
    </message>
    <message>
        <source>Asked for</source>
        <translation>Wird erfragt</translation>
    </message>
    <message>
        <source>Linear, on triangles</source>
        <translation>Linear, auf Dreiecken</translation>
    </message>
    <message>
        <source>Nearest point</source>
        <translation>Nächster Punkt</translation>
    </message>
    <message>
        <source>Mean by inverse distance</source>
        <translation>Mittel nach inverser Distanz</translation>
    </message>
    <message>
        <source>C&amp;ell size</source>
        <translation>Z&amp;ellgröße</translation>
    </message>
    <message>
        <source>&amp;Reach of a point</source>
        <translation>&amp;Reichweite eines Punktes</translation>
    </message>
    <message>
        <source>&amp;Band</source>
        <translation>&amp;Band</translation>
    </message>
    <message>
        <source>Re&amp;gion</source>
        <translation>A&amp;usschnitt</translation>
    </message>
    <message>
        <source>From the density of the points</source>
        <translation>Nach der Dichte der Punkte</translation>
    </message>
</context>
<context>
    <name>ReadDialogs</name>
    <message>
        <source>This file may be read in several ways:</source>
        <translation>Diese Datei lässt sich auf mehrere Arten lesen:</translation>
    </message>
    <message>
        <source>Scattered points</source>
        <translation>Verstreute Punkte</translation>
    </message>
    <message>
        <source>Linear, on triangles</source>
        <translation>Linear, auf Dreiecken</translation>
    </message>
    <message>
        <source>Nearest point</source>
        <translation>Nächster Punkt</translation>
    </message>
    <message>
        <source>Mean by inverse distance</source>
        <translation>Mittel nach inverser Distanz</translation>
    </message>
    <message>
        <source>&amp;Method</source>
        <translation>&amp;Verfahren</translation>
    </message>
    <message>
        <source>&amp;Cell size</source>
        <translation>&amp;Zellgröße</translation>
    </message>
    <message numerus="yes">
        <source>%n points, of which a grid is made</source>
        <translation>
            <numerusform>%n Punkt, aus dem ein Gitter gebildet wird</numerusform>
            <numerusform>%n Punkte, aus denen ein Gitter gebildet wird</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Read as...</source>
        <translation>&amp;Einlesen als...</translation>
    </message>
</context>
<context>
    <name>Sessions</name>
    <message>
        <source>it names no surface</source>
        <translation>nennt keine Fläche</translation>
    </message>
    <message>
        <source>no session: %1</source>
        <translation>keine Sitzung: %1</translation>
    </message>
    <message>
        <source>no session</source>
        <translation>keine Sitzung</translation>
    </message>
    <message>
        <source>a session of a later version</source>
        <translation>eine Sitzung einer späteren Version</translation>
    </message>
    <message>
        <source>cannot be written: %1</source>
        <translation>lässt sich nicht schreiben: %1</translation>
    </message>
    <message>
        <source>a name of a file ends before its text does</source>
        <translation>der Name einer Datei endet vor ihrem Text</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>expected a colour such as ff8000 or red, found &quot;%1&quot;</source>
        <translation>Farbe wie ff8000 oder red erwartet, „%1“ gefunden</translation>
    </message>
    <message>
        <source>expected values, or a colour such as ff8000 or red, found &quot;%1&quot;</source>
        <translation>values oder eine Farbe wie ff8000 oder red erwartet, „%1“ gefunden</translation>
    </message>
    <message>
        <source>Titles</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Contours</source>
        <translation>Höhenlinien</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>%1 axis</source>
        <translation>%1-Achse</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>First tick value of the %1 axis</source>
        <translation>Erster Wert der %1-Achse</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Last tick value of the %1 axis</source>
        <translation>Letzter Wert der %1-Achse</translation>
    </message>
    <message>
        <source>Ticks</source>
        <translation>Teilstriche</translation>
    </message>
    <message>
        <source>Number of ticks of the %1 axis</source>
        <translation>Anzahl der Teilstriche der %1-Achse</translation>
    </message>
    <message>
        <source>Decimals</source>
        <translation>Nachkommastellen</translation>
    </message>
    <message>
        <source>Decimals of the labels of the %1 axis</source>
        <translation>Nachkommastellen der Beschriftung der %1-Achse</translation>
    </message>
    <message>
        <source>Numbers</source>
        <translation>Zahlen</translation>
    </message>
    <message>
        <source>Inverse %1 axis</source>
        <translation>%1-Achse umgekehrt</translation>
    </message>
    <message>
        <source>Mirror the %1 axis of the 3-D plot</source>
        <translation>%1-Achse des 3D-Diagramms spiegeln</translation>
    </message>
    <message>
        <source>Contours of equal %1</source>
        <translation>Höhenlinien in %1</translation>
    </message>
    <message>
        <source>Contours of equal %1 in the 3-D plot</source>
        <translation>Linien gleicher %1-Werte im 3D-Diagramm</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>%1 axis: lowest value</source>
        <translation>%1-Achse: kleinster Wert</translation>
    </message>
    <message>
        <source>Colour of the smallest value, for the surface and its legend</source>
        <translation>Farbe des kleinsten Wertes, für die Fläche und ihre Legende</translation>
    </message>
    <message>
        <source>Colour of the smallest value, for the legend of the flat plot along %1</source>
        <translation>Farbe des kleinsten Wertes, für die Legende des ebenen Diagramms längs %1</translation>
    </message>
    <message>
        <source>%1 axis: highest value</source>
        <translation>%1-Achse: größter Wert</translation>
    </message>
    <message>
        <source>Colour of the largest value, for the surface and its legend</source>
        <translation>Farbe des größten Wertes, für die Fläche und ihre Legende</translation>
    </message>
    <message>
        <source>Colour of the largest value, for the legend of the flat plot along %1</source>
        <translation>Farbe des größten Wertes, für die Legende des ebenen Diagramms längs %1</translation>
    </message>
    <message>
        <source>Levels</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Number of contour levels of each axis</source>
        <translation>Anzahl der Höhenlinien jeder Achse</translation>
    </message>
    <message>
        <source>Interval of z</source>
        <translation>Abstand in z</translation>
    </message>
    <message>
        <source>Distance of the contour levels of equal z; 0 for as many as there are levels</source>
        <translation>Abstand der Höhenlinien in z; 0: Abstand nach der Anzahl</translation>
    </message>
    <message>
        <source>Base of z</source>
        <translation>Bezugshöhe in z</translation>
    </message>
    <message>
        <source>One of the contour levels, where they have an interval</source>
        <translation>Eine der Höhen, wenn ein Abstand gesetzt ist</translation>
    </message>
    <message>
        <source>Filled contours</source>
        <translation>Gefüllte Höhenlinien</translation>
    </message>
    <message>
        <source>Colours between the contours of the flat plot of XY</source>
        <translation>Farben zwischen Höhenlinien im ebenen Diagramm</translation>
    </message>
    <message>
        <source>Grid lines</source>
        <translation>Gitterlinien</translation>
    </message>
    <message>
        <source>Lines from the ticks across the back planes</source>
        <translation>Linien von den Teilstrichen über die Rückwände</translation>
    </message>
    <message>
        <source>Without lines from the ticks across the back planes</source>
        <translation>Ohne Linien von den Teilstrichen über die Rückwände</translation>
    </message>
    <message>
        <source>Frame lines</source>
        <translation>Netzlinien</translation>
    </message>
    <message>
        <source>Lines on the surface</source>
        <translation>Linien auf der Fläche</translation>
    </message>
    <message>
        <source>Without lines on the surface</source>
        <translation>Ohne Linien auf der Fläche</translation>
    </message>
    <message>
        <source>Columns per frame line</source>
        <translation>Spalten je Netzlinie</translation>
    </message>
    <message>
        <source>Columns from one frame line to the next</source>
        <translation>Spalten von einer Netzlinie zur nächsten</translation>
    </message>
    <message>
        <source>Rows per frame line</source>
        <translation>Zeilen je Netzlinie</translation>
    </message>
    <message>
        <source>Rows from one frame line to the next</source>
        <translation>Zeilen von einer Netzlinie zur nächsten</translation>
    </message>
    <message>
        <source>Frame line colour</source>
        <translation>Farbe der Netzlinien</translation>
    </message>
    <message>
        <source>Colour of the lines on the surface</source>
        <translation>Farbe der Linien auf der Fläche</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Colour behind the plot</source>
        <translation>Farbe hinter dem Diagramm</translation>
    </message>
    <message>
        <source>Ink</source>
        <translation>Vordergrund</translation>
    </message>
    <message>
        <source>Colour of texts and of the lines of the axes</source>
        <translation>Farbe der Texte und der Linien der Achsen</translation>
    </message>
    <message>
        <source>From low to high</source>
        <translation>Farbskala</translation>
    </message>
    <message>
        <source>Range of values</source>
        <translation>Wertebereich</translation>
    </message>
    <message>
        <source>Values of Z with the first and the last colour, instead of those of the data</source>
        <translation>Werte von Z mit der ersten und der letzten Farbe, statt derer der Daten</translation>
    </message>
    <message>
        <source>Colours follow the Z axis</source>
        <translation>Farben folgen der Z-Achse</translation>
    </message>
    <message>
        <source>First and last colour at the ends of the Z axis</source>
        <translation>Farben bis an die Enden der Z-Achse</translation>
    </message>
    <message>
        <source>All axes: lowest value</source>
        <translation>Alle Achsen: kleinster Wert</translation>
    </message>
    <message>
        <source>Colour of the smallest value, for axes without one of their own</source>
        <translation>Farbe des kleinsten Wertes, für Achsen ohne eigene</translation>
    </message>
    <message>
        <source>All axes: highest value</source>
        <translation>Alle Achsen: größter Wert</translation>
    </message>
    <message>
        <source>Colour of the largest value, for axes without one of their own</source>
        <translation>Farbe des größten Wertes, für Achsen ohne eigene</translation>
    </message>
    <message>
        <source>Legend</source>
        <translation>Legende</translation>
    </message>
    <message>
        <source>Colour legend</source>
        <translation>Farblegende</translation>
    </message>
    <message>
        <source>The bar of colours with its numbers</source>
        <translation>Farbbalken mit seinen Zahlen</translation>
    </message>
    <message>
        <source>Without the bar of colours with its numbers</source>
        <translation>Ohne Farbbalken mit seinen Zahlen</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>What the colours of Z mean, above their bar</source>
        <translation>Bedeutung der Farben von Z, über dem Balken</translation>
    </message>
    <message>
        <source>Decimals of the legend&apos;s labels, where they are set</source>
        <translation>Nachkommastellen der Legende, wenn sie fest sind</translation>
    </message>
    <message>
        <source>Names of measure groups</source>
        <translation>Namen der Messgruppen</translation>
    </message>
    <message>
        <source>A list of the measure groups in the corner of the 3-D plot</source>
        <translation>Liste der Messgruppen in der Ecke</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Grid always behind surface</source>
        <translation>Gitter immer hinter der Fläche</translation>
    </message>
    <message>
        <source>A grid that stands behind the surface from every side</source>
        <translation>Gitter, das von jeder Seite hinter der Fläche steht</translation>
    </message>
    <message>
        <source>Without a grid that stands behind the surface from every side</source>
        <translation>Ohne Gitter, das von jeder Seite hinter der Fläche steht</translation>
    </message>
    <message>
        <source>Auto aspect</source>
        <translation>Automatische Proportionen</translation>
    </message>
    <message>
        <source>A box of the same shape whatever the ranges of its axes</source>
        <translation>Form des Kastens unabhängig von den Achsen</translation>
    </message>
    <message>
        <source>Without a box of the same shape whatever the ranges of its axes</source>
        <translation>Form des Kastens nach den Bereichen der Achsen</translation>
    </message>
    <message>
        <source>Exaggeration</source>
        <translation>Überhöhung</translation>
    </message>
    <message>
        <source>How many times as long Z is drawn as X and Y, which have one scale then; 0 for lengths as they follow from the ranges</source>
        <translation>Wievielmal so lang wie X und Y Z gezeichnet wird, die dann einen Maßstab haben; 0: Längen nach den Bereichen</translation>
    </message>
    <message>
        <source>Trace the pointer</source>
        <translation>Punkt am Zeiger</translation>
    </message>
    <message>
        <source>Show the point of the surface under the pointer</source>
        <translation>Punkt der Fläche unter dem Zeiger zeigen</translation>
    </message>
    <message>
        <source>Reduce while moving</source>
        <translation>Beim Bewegen ausdünnen</translation>
    </message>
    <message>
        <source>Fewer points of large grids while the plot moves</source>
        <translation>Weniger Punkte großer Gitter beim Bewegen</translation>
    </message>
    <message>
        <source>Without fewer points of large grids while the plot moves</source>
        <translation>Alle Punkte auch großer Gitter, während sich das Diagramm bewegt</translation>
    </message>
    <message>
        <source>Keep Z upright</source>
        <translation>Z aufrecht halten</translation>
    </message>
    <message>
        <source>Left button and arrows turn it like a turntable</source>
        <translation>Drehen wie auf einem Drehteller</translation>
    </message>
    <message>
        <source>Left button and arrows turn it freely</source>
        <translation>Linke Taste und Pfeile drehen frei</translation>
    </message>
    <message>
        <source>Axes fit all surfaces</source>
        <translation>Achsen umfassen alle Flächen</translation>
    </message>
    <message>
        <source>A box as large as all surfaces together</source>
        <translation>Kasten so groß wie alle Flächen zusammen</translation>
    </message>
    <message>
        <source>Without a box as large as all surfaces together</source>
        <translation>Kasten nur so groß wie die erste Fläche</translation>
    </message>
    <message>
        <source>Digits for the range</source>
        <translation>Stellen passend zum Bereich</translation>
    </message>
    <message>
        <source>Coordinates of the traced point with the digits that the axes need</source>
        <translation>Koordinaten am Zeiger mit den nötigen Stellen</translation>
    </message>
    <message>
        <source>Without coordinates of the traced point with the digits that the axes need</source>
        <translation>Koordinaten am Zeiger mit drei Nachkommastellen</translation>
    </message>
    <message>
        <source>Point size</source>
        <translation>Punktgröße</translation>
    </message>
    <message>
        <source>Radius of measure points in pixels</source>
        <translation>Radius der Messpunkte in Pixeln</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>Title of the plot</source>
        <translation>Titel des Diagramms</translation>
    </message>
    <message>
        <source>Title of the %1 axis</source>
        <translation>Titel der %1-Achse</translation>
    </message>
    <message>
        <source>expected on or off, found &quot;%1&quot;</source>
        <translation>on oder off erwartet, „%1“ gefunden</translation>
    </message>
    <message>
        <source>expected a whole number from %1 to %2, found &quot;%3&quot;</source>
        <translation>ganze Zahl von %1 bis %2 erwartet, „%3“ gefunden</translation>
    </message>
    <message>
        <source>expected a number from 0 on, found &quot;%1&quot;</source>
        <translation>Zahl ab 0 erwartet, „%1“ gefunden</translation>
    </message>
    <message>
        <source>expected a number, found &quot;%1&quot;</source>
        <translation>Zahl erwartet, „%1“ gefunden</translation>
    </message>
    <message>
        <source>expected %1, found &quot;%2&quot;</source>
        <translation>%1 erwartet, „%2“ gefunden</translation>
    </message>
    <message>
        <source>expected MIN:MAX, two different numbers, found &quot;%1&quot;</source>
        <translation>MIN:MAX erwartet, zwei verschiedene Zahlen, „%1“ gefunden</translation>
    </message>
    <message>
        <source>How the numbers of the %1 axis are written</source>
        <translation>Schreibweise der Zahlen der %1-Achse</translation>
    </message>
    <message>
        <source>Colours of values</source>
        <translation>Farben der Werte</translation>
    </message>
    <message>
        <source>Eleven numbers beside the bar with decimals that are set, eleven with those that they need, or round ones</source>
        <translation>Elf Zahlen neben dem Balken mit festen Nachkommastellen, elf mit so vielen wie nötig, oder runde</translation>
    </message>
    <message>
        <source>Label contours</source>
        <translation>Höhenlinien beschriften</translation>
    </message>
    <message>
        <source>Values at the contours of the flat plot of XY</source>
        <translation>Werte an Höhenlinien im ebenen Diagramm XY</translation>
    </message>
    <message>
        <source>Exaggeration in the title</source>
        <translation>Überhöhung im Titel</translation>
    </message>
    <message>
        <source>How many times as long Z is drawn as X and Y, behind the title of the plot</source>
        <translation>Überhöhung hinter dem Titel des Diagramms</translation>
    </message>
    <message>
        <source>Names of points</source>
        <translation>Namen der Punkte</translation>
    </message>
    <message>
        <source>Names beside measure points, as far as their file has them</source>
        <translation>Namen neben Messpunkten, soweit vorhanden</translation>
    </message>
    <message>
        <source>List of points</source>
        <translation>Liste der Punkte</translation>
    </message>
    <message>
        <source>A list of named points with their coordinates</source>
        <translation>Liste benannter Punkte mit Koordinaten</translation>
    </message>
</context>
<context>
    <name>SettingsPanel</name>
    <message>
        <source>Back to what it was by itself</source>
        <translation>Zurück zum Wert, der sich von selbst ergibt</translation>
    </message>
    <message>
        <source>The %1 axis follows as soon as its other end fits</source>
        <translation>Die %1-Achse folgt, sobald auch ihr anderes Ende passt</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>not enough memory</source>
        <translation>der Speicher reicht nicht aus</translation>
    </message>
    <message>
        <source>Qt&apos;s plugin for this display is missing; install qt6-wayland, for X11 qt6-qpa-plugins</source>
        <translation>Qts Plugin für diese Anzeige fehlt; qt6-wayland installieren, für X11 qt6-qpa-plugins</translation>
    </message>
    <message>
        <source>Qt has no plugin for QT_QPA_PLATFORM=%1; unset it</source>
        <translation>Qt hat kein Plugin für QT_QPA_PLATFORM=%1; die Variable löschen</translation>
    </message>
    <message>
        <source>no display; set DISPLAY or use --picture FILE.png</source>
        <translation>keine Anzeige; DISPLAY setzen oder --picture FILE.png verwenden</translation>
    </message>
    <message>
        <source>cannot open display %1; set DISPLAY or use --picture FILE.png</source>
        <translation>Anzeige %1 lässt sich nicht öffnen; DISPLAY setzen oder --picture FILE.png verwenden</translation>
    </message>
</context>
<context>
    <name>SurfacesPanel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>Click the box to show or hide the surface, twice the name to change it</source>
        <translation>Kästchen anklicken: Fläche zeigen oder verbergen; Namen doppelklicken: ändern</translation>
    </message>
    <message>
        <source>values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>Click to colour the surface by its values, or in one colour</source>
        <translation>Anklicken, um die Fläche nach ihren Werten oder einfarbig zu färben</translation>
    </message>
    <message>
        <source>From 0 to 1: click twice to change it</source>
        <translation>Von 0 bis 1: doppelklicken, um sie zu ändern</translation>
    </message>
    <message>
        <source>Click to show or hide the frame lines</source>
        <translation>Anklicken, um die Netzlinien zu zeigen oder zu verbergen</translation>
    </message>
    <message>
        <source>Click to take the surface away</source>
        <translation>Anklicken, um die Fläche zu entfernen</translation>
    </message>
    <message>
        <source>Opacity: expected a number from 0 to 1, found &quot;%1&quot;</source>
        <translation>Deckkraft: Zahl von 0 bis 1 erwartet, „%1“ gefunden</translation>
    </message>
    <message>
        <source>The first surface stays: the axes are made for it</source>
        <translation>Die erste Fläche bleibt: nach ihr richten sich die Achsen</translation>
    </message>
    <message>
        <source>By its &amp;values</source>
        <translation>Nach ihren &amp;Werten</translation>
    </message>
    <message>
        <source>In &amp;one colour...</source>
        <translation>&amp;Einfarbig...</translation>
    </message>
    <message>
        <source>Colour of %1</source>
        <translation>Farbe von %1</translation>
    </message>
</context>
<context>
    <name>WindowReading</name>
    <message>
        <source>Reading %1...</source>
        <translation>%1 wird gelesen...</translation>
    </message>
</context>
</TS>
