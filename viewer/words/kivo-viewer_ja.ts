<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>Choices</name>
    <message>
        <source>gradient</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>grey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>terrain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>plain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>engineering</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>powers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>fitted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>round</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Needs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 requires %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: Value %2 not in range %3 to %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: At Most %2 required but received %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not convert: %1 = %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was given a disallowed flag override</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: Should be true/false or a number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without data the viewer shows a sample terrain.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mouse:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exit status: 0 for success, 2 with one line that says what is wrong.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 and %2 exclude each other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dots per inch that texts, lines and points are sized for (96)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Factor on the size of texts, lines and points (1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How much finer it is drawn, for soft edges: 1 to 4 (2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leave the background out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>List the formats of files that can be read and written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Band of a raster (1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Part of the files that alone is read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Columns of x, y and z in tables, by numbers or names; all: a matrix of values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Decimal mark of tables: point or comma</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How a grid is made of scattered points: linear, nearest or inverse (linear)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cell size of such a grid (from the density of the points)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How far a point reaches in such a grid; the longest edge of a triangle where it is linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Side from which the 3-D plot is seen: 0 beyond the large end of X, 90 of Y (45)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Height from which the 3-D plot is seen, -90 to 90: 90 from above (25.26)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How many times as large the plot is shown (1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opacity of a surface, 0 to 1; may be repeated, for the files in their order (1, then 0.7)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of a surface, or values where these give the colours; may be repeated, for the files in their order (values, then one colour each)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files, settings and view that the window has saved; what else is given counts more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read the files again when they change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language of the program: en, de or ja (the one of the desktop)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grids of points, the second and so on over the first: ESRI ASCII grid, Surfer grid, points, matrix, or what GDAL reads; - for the standard input</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grids of points, the second and so on over the first: ESRI ASCII grid, Surfer grid, points, matrix; - for the standard input</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Formula such as &quot;sin(x)*cos(y)&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write the plot to a file of the format that its name ends in, or - for PNG to the standard output; needs no display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grid that is subtracted from the first, at its points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values of x, -3:3:61 without</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values of y, -3:3:61 without</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size of the picture or the window&apos;s plot in pixels, 1200x800 without</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>0: 3-D plot, 1: XY, 2: YZ, 3: XZ</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Measure points, x y z in each line; may be repeated, a group for each file or each name in it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Points of a curve, x y z in each line; may be repeated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trace the surface at this pixel of the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected WIDTHxHEIGHT of 1 to %1 each, found %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected X,Y in pixels, found %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected a number from %1 to %2, found %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>at most %1 with %2 dots per inch, found %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>only the 3-D plot is turned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected a number above 0, found %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected point or comma, found %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows a surface z = f(x, y) as a 3-D plot.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; kivo-viewer --help lists the options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected four numbers x0:x1:y0:y1 that rise from x0 to x1 and from y0 to y1, found %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected linear, nearest or inverse, found %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected the columns of x, y and z, such as 1,2,4, or all for a matrix, found %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>given %1 times for %n surface(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message>
        <source>unknown header entry %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a second entry %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected one value after %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a number: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 must be a whole number of at least 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 must be positive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no values after the header</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the header lacks %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>too many points; at most %1 can be shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the cells reach beyond single precision</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the cells are too small for coordinates of this size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>more than %1 rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected %1 values, found %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected %1 rows, found %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no place has a value of both</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot open it: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read it: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>larger than 1 GiB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the raster is rotated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no raster band in it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>several variables; open one of them by its whole name: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no band %1; the last one is %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>every %1st of %2 x %3 points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>every %1rd of %2 x %3 points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>every %1th of %2 x %3 points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>band %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there are values of %1 that lie too close to each other for the distance between the first and the last</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a finite number is needed here: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>number beyond single precision: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a surface needs at least 2 x 2 points, and of these %1 x %2 lie in the region</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a surface needs at least 2 x 2 points, found %1 x %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>every value is missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Points: x, y and z are the first three columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A matrix of values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 numbers in each line are points, or a matrix of values; --columns 1,2,3 or --columns all says it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the x values must rise or fall from column to column</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no values after the x values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the y values must rise or fall from row to row</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 x %3 points are not in the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>x, y and z from the columns %1, %2 and %3 of %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>expected x, y and z, found %n value(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>expected %1 values, found %n value(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>no points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no points after the column names</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nearest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>inverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the sample terrain is missing from the program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the points lie too close to each other for triangles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no grid can be made of the points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a surface needs at least three points that do not lie on a line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 scattered points, %2 on cells of %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the points are scattered; this program was built without GDAL, which makes grids of them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the ranges of x and y must rise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file ends before %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the range of x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the range of y</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the range of z</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the last value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the number of columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the number of rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>more than %1 values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is cut off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>values come before the size of the grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 without names</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the comma of %1 may be a decimal mark or part thousands; --decimal comma or --decimal point says it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commas are decimal marks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no column %1; its columns are %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>expected x, y and z, found %n value(s); --columns says which of them these are</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>this is not a text file in UTF-8 or ASCII</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Formats</name>
    <message>
        <source>Grids read:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESRI ASCII grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Surfer grid, versions 6 and 7</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Table of points x, y, z</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Matrix of values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grids read by GDAL:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pictures written:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Formula</name>
    <message>
        <source>the range is too narrow for %1 values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 at position %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>formula: one value is needed, not several parted by commas</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected from:to:count, found %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected two numbers in %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the range is empty: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected a count from 2 to %1 in %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>formula: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>formula: no finite value in this range</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Input</name>
    <message>
        <source>Arrows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn the 3-D plot by five degrees, or move a flat one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift+arrows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plus, minus</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn the 3-D plot like a turntable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn the 3-D plot freely</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift + either, or middle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl + either</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom: down enlarges, up shrinks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double click</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bring what is there to the middle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom at the pointer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move, while tracing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the point of the surface under the pointer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open it; of several the others lie over the first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift + drop a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lay it over what is shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Lists</name>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>How many times as long Z is drawn as X and Y</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot draw: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Surfaces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Points and curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset all settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exaggeration %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys and mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys, continued</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Kivo Viewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows surfaces z = f(x, y), drawn by the library KivoFunctionPlotter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MIT licence.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pixels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Resolution</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>dots per inch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Texts, lines and points keep their size on paper: with more dots per inch they have more pixels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grids of points and sessions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a grid of points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add surfaces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add measure points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Points x, y, z</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copied the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the printer cannot be used</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the session</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subtract a grid of points</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Menu</name>
    <message>
        <source>%1, or not</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a grid of points, or a session</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a grid from before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add sur&amp;face...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lay other grids of points over the one that is shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Su&amp;btract a grid...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show by how much the first surface differs from another grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add measure &amp;points...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add measure points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add &amp;curves...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sa&amp;ve session...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save files, settings and view, to be opened again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Read again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read the files again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Watch files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read files again when they change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save picture...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the plot as a picture of any size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cop&amp;y picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy the plot to the clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print the plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End the program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;3-D plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the 3-D plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;XY projection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the flat plot of XY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;YZ projection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the flat plot of YZ</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X&amp;Z projection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the flat plot of XZ</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reset view</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo turning, moving and zooming</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sur&amp;faces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or hide the list of surfaces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Points and curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or hide the list of points and curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;%1 %2...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go to the settings: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings &amp;panel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or hide the settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take the last change of a setting back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make it again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reset all settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take all settings back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keys and mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tell what keys and mouse do</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tell what this program is</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Pictures</name>
    <message>
        <source>a picture&apos;s name must end in %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>standard output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write it: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the page cannot be made</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>JPEG has no transparency; take another format</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Plot</name>
    <message>
        <source>cannot draw: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the %1 axis must rise, not go from %2 to %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the colours need a wider range than %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the colours cannot have the range %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it lies too far from the first surface to be shown with it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it cannot be laid over another surface</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PointsPanel</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click the box to show or hide the points, twice the name to change it; Delete takes them away</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click to choose another colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Curve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReadDialogs</name>
    <message>
        <source>This file may be read in several ways:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scattered points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linear, on triangles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nearest point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mean by inverse distance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Method</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cell size</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n points, of which a grid is made</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Sessions</name>
    <message>
        <source>it names no surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no session: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no session</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a session of a later version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot be written: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>expected a colour such as ff8000 or red, found &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected values, or a colour such as ff8000 or red, found &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Titles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First tick value of the %1 axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last tick value of the %1 axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ticks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number of ticks of the %1 axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Decimals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Decimals of the labels of the %1 axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Numbers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inverse %1 axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mirror the %1 axis of the 3-D plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contours of equal %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contours of equal %1 in the 3-D plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 axis: lowest value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of the smallest value, for the surface and its legend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of the smallest value, for the legend of the flat plot along %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 axis: highest value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of the largest value, for the surface and its legend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of the largest value, for the legend of the flat plot along %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Levels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number of contour levels of each axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interval of z</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Distance of the contour levels of equal z; 0 for as many as there are levels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base of z</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One of the contour levels, where they have an interval</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filled contours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colours between the contours of the flat plot of XY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grid lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lines from the ticks across the back planes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without lines from the ticks across the back planes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lines on the surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without lines on the surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Columns per frame line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Columns from one frame line to the next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rows per frame line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rows from one frame line to the next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame line colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of the lines on the surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Background</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour behind the plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ink</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of texts and of the lines of the axes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From low to high</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Range of values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values of Z with the first and the last colour, instead of those of the data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colours follow the Z axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First and last colour at the ends of the Z axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All axes: lowest value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of the smallest value, for axes without one of their own</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All axes: highest value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of the largest value, for axes without one of their own</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Legend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour legend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The bar of colours with its numbers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without the bar of colours with its numbers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the colours of Z mean, above their bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Decimals of the legend&apos;s labels, where they are set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Names of measure groups</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A list of the measure groups in the corner of the 3-D plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grid always behind surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A grid that stands behind the surface from every side</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without a grid that stands behind the surface from every side</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto aspect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A box of the same shape whatever the ranges of its axes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without a box of the same shape whatever the ranges of its axes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exaggeration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How many times as long Z is drawn as X and Y, which have one scale then; 0 for lengths as they follow from the ranges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trace the pointer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the point of the surface under the pointer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reduce while moving</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fewer points of large grids while the plot moves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without fewer points of large grids while the plot moves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Z upright</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left button and arrows turn it like a turntable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left button and arrows turn it freely</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Axes fit all surfaces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A box as large as all surfaces together</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without a box as large as all surfaces together</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Digits for the range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Coordinates of the traced point with the digits that the axes need</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without coordinates of the traced point with the digits that the axes need</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Point size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Radius of measure points in pixels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title of the plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title of the %1 axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected on or off, found &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected a whole number from %1 to %2, found &quot;%3&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected a number from 0 on, found &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected a number, found &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected %1, found &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expected MIN:MAX, two different numbers, found &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How the numbers of the %1 axis are written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colours of values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Eleven numbers beside the bar with decimals that are set, eleven with those that they need, or round ones</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsPanel</name>
    <message>
        <source>Back to what it was by itself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The %1 axis follows as soon as its other end fits</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>not enough memory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Qt&apos;s plugin for this display is missing; install qt6-wayland, for X11 qt6-qpa-plugins</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Qt has no plugin for QT_QPA_PLATFORM=%1; unset it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no display; set DISPLAY or use --picture FILE.png</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot open display %1; set DISPLAY or use --picture FILE.png</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SurfacesPanel</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click the box to show or hide the surface, twice the name to change it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click to colour the surface by its values, or in one colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From 0 to 1: click twice to change it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click to show or hide the frame lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click to take the surface away</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opacity: expected a number from 0 to 1, found &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The first surface stays: the axes are made for it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>By its &amp;values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In &amp;one colour...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour of %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
