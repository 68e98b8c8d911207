<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>Background</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>Choices</name>
    <message>
        <source>gradient</source>
        <translation>グラデーション</translation>
    </message>
    <message>
        <source>grey</source>
        <translation>グレー</translation>
    </message>
    <message>
        <source>terrain</source>
        <translation>地形</translation>
    </message>
    <message>
        <source>plain</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>engineering</source>
        <translation>工学表記 (12.5k)</translation>
    </message>
    <message>
        <source>powers</source>
        <translation>10 の累乗</translation>
    </message>
    <message>
        <source>date</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>set</source>
        <translation>指定した桁数</translation>
    </message>
    <message>
        <source>fitted</source>
        <translation>必要な桁数</translation>
    </message>
    <message>
        <source>round</source>
        <translation>切りのよい値</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage</source>
        <translation>使い方</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>引数</translation>
    </message>
    <message>
        <source>Needs</source>
        <translation>必須</translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation>併用不可</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>このヘルプを表示して終了する</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>余分な引数です: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>余分な引数です: %1</translation>
    </message>
    <message>
        <source>%1 requires %2</source>
        <translation>%1 には %2 が必要です</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 と %2 は同時に指定できません</translation>
    </message>
    <message>
        <source>%1: Value %2 not in range %3 to %4</source>
        <translation>%1: 値 %2 が %3 から %4 の範囲にありません</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1: %3 が %2 個足りません</translation>
    </message>
    <message>
        <source>%1: At Most %2 required but received %3</source>
        <translation>%1: 最大 %2 個ですが、%3 個指定されています</translation>
    </message>
    <message>
        <source>Could not convert: %1 = %2</source>
        <translation>%1: 「%2」は使えません</translation>
    </message>
    <message>
        <source>%1 was given a disallowed flag override</source>
        <translation>%1 に値は指定できません</translation>
    </message>
    <message>
        <source>%1: Should be true/false or a number</source>
        <translation>%1: true、false または数値を指定してください</translation>
    </message>
    <message>
        <source>Without data the viewer shows a sample terrain.</source>
        <translation>データを指定しないと、見本の地形を表示します。</translation>
    </message>
    <message>
        <source>Mouse:</source>
        <translation>マウス:</translation>
    </message>
    <message>
        <source>Keys:</source>
        <translation>キー:</translation>
    </message>
    <message>
        <source>Exit status: 0 for success, 2 with one line that says what is wrong.</source>
        <translation>終了コード: 成功すると 0、失敗すると 2 で、理由を 1 行で示します。</translation>
    </message>
    <message>
        <source>%1 and %2 exclude each other</source>
        <translation>%1 と %2 は同時に指定できません</translation>
    </message>
    <message>
        <source>Dots per inch that texts, lines and points are sized for (96)</source>
        <translation>文字、線、点の大きさの基準となる解像度（dpi）（96）</translation>
    </message>
    <message>
        <source>Factor on the size of texts, lines and points (1)</source>
        <translation>文字、線、点の大きさの倍率（1）</translation>
    </message>
    <message>
        <source>How much finer it is drawn, for soft edges: 1 to 4 (2)</source>
        <translation>縁を滑らかにするために何倍の細かさで描くか: 1 から 4（2）</translation>
    </message>
    <message>
        <source>Leave the background out</source>
        <translation>背景を透明にする</translation>
    </message>
    <message>
        <source>List the formats of files that can be read and written</source>
        <translation>読み書きできるファイル形式を一覧する</translation>
    </message>
    <message>
        <source>Band of a raster (1)</source>
        <translation>ラスターのバンド（1）</translation>
    </message>
    <message>
        <source>Part of the files that alone is read</source>
        <translation>ファイルのうち読み込む範囲</translation>
    </message>
    <message>
        <source>Columns of x, y and z in tables, by numbers or names; all: a matrix of values</source>
        <translation>表の x、y、z の列（番号または名前）。all は値の行列</translation>
    </message>
    <message>
        <source>Decimal mark of tables: point or comma</source>
        <translation>表の小数点: point（点）または comma（コンマ）</translation>
    </message>
    <message>
        <source>How a grid is made of scattered points: linear, nearest or inverse (linear)</source>
        <translation>散在する点から格子を作る方法: linear、nearest、inverse（linear）</translation>
    </message>
    <message>
        <source>Cell size of such a grid (from the density of the points)</source>
        <translation>その格子のセルの大きさ（点の密度から決定）</translation>
    </message>
    <message>
        <source>How far a point reaches in such a grid; the longest edge of a triangle where it is linear</source>
        <translation>その格子で点の値が及ぶ距離。linear では三角形の最長の辺</translation>
    </message>
    <message>
        <source>Side from which the 3-D plot is seen: 0 beyond the large end of X, 90 of Y (45)</source>
        <translation>3D プロットを見る方位: 0 は X の大きい側、90 は Y の大きい側（45）</translation>
    </message>
    <message>
        <source>Height from which the 3-D plot is seen, -90 to 90: 90 from above (25.26)</source>
        <translation>3D プロットを見る仰角、-90 から 90: 90 は真上（25.26）</translation>
    </message>
    <message>
        <source>How many times as large the plot is shown (1)</source>
        <translation>プロットの表示倍率（1）</translation>
    </message>
    <message>
        <source>Opacity of a surface, 0 to 1; may be repeated, for the files in their order (1, then 0.7)</source>
        <translation>曲面の不透明度、0 から 1。ファイルの順に繰り返し指定できる（最初は 1、以降は 0.7）</translation>
    </message>
    <message>
        <source>Colour of a surface, or values where these give the colours; may be repeated, for the files in their order (values, then one colour each)</source>
        <translation>曲面の色。values は値による色分け。ファイルの順に繰り返し指定できる（最初は values、以降は 1 色ずつ）</translation>
    </message>
    <message>
        <source>Files, settings and view that the window has saved; what else is given counts more</source>
        <translation>ウィンドウで保存したファイル、設定、視点。ほかの指定が優先される</translation>
    </message>
    <message>
        <source>Read the files again when they change</source>
        <translation>ファイルが変わったら読み込み直す</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>バージョンを表示して終了する</translation>
    </message>
    <message>
        <source>Language of the program: en, de or ja (the one of the desktop)</source>
        <translation>プログラムの言語: en、de、ja（デスクトップの言語）</translation>
    </message>
    <message>
        <source>Grids of points, the second and so on over the first: ESRI ASCII grid, Surfer grid, points, matrix, or what GDAL reads; - for the standard input</source>
        <translation>点の格子。2 番目以降は最初のものに重ねる: ESRI ASCII グリッド、Surfer グリッド、点、行列、GDAL が読める形式。- は標準入力</translation>
    </message>
    <message>
        <source>Grids of points, the second and so on over the first: ESRI ASCII grid, Surfer grid, points, matrix; - for the standard input</source>
        <translation>点の格子。2 番目以降は最初のものに重ねる: ESRI ASCII グリッド、Surfer グリッド、点、行列。- は標準入力</translation>
    </message>
    <message>
        <source>Formula such as &quot;sin(x)*cos(y)&quot;</source>
        <translation>数式。例: &quot;sin(x)*cos(y)&quot;</translation>
    </message>
    <message>
        <source>Write the plot to a file of the format that its name ends in, or - for PNG to the standard output; needs no display</source>
        <translation>プロットをファイルに書き出す。形式は拡張子で決まり、- は PNG を標準出力に書く。画面は不要</translation>
    </message>
    <message>
        <source>Grid that is subtracted from the first, at its points</source>
        <translation>最初の格子からその点で差し引く格子</translation>
    </message>
    <message>
        <source>Values of x, -3:3:61 without</source>
        <translation>x の値。省略時は -3:3:61</translation>
    </message>
    <message>
        <source>Values of y, -3:3:61 without</source>
        <translation>y の値。省略時は -3:3:61</translation>
    </message>
    <message>
        <source>Size of the picture or the window&apos;s plot in pixels, 1200x800 without</source>
        <translation>画像またはウィンドウのプロットの大きさ（画素）。省略時は 1200x800</translation>
    </message>
    <message>
        <source>0: 3-D plot, 1: XY, 2: YZ, 3: XZ</source>
        <translation>0: 3D プロット、1: XY、2: YZ、3: XZ</translation>
    </message>
    <message>
        <source>Measure points, x y z in each line; may be repeated, a group for each file or each name in it</source>
        <translation>測定点。各行に x y z。繰り返し指定でき、ファイルまたはその中の名前ごとに 1 グループ</translation>
    </message>
    <message>
        <source>Points of a curve, x y z in each line; may be repeated</source>
        <translation>曲線の点。各行に x y z。繰り返し指定できる</translation>
    </message>
    <message>
        <source>Trace the surface at this pixel of the picture</source>
        <translation>画像のこの画素で曲面の点を示す</translation>
    </message>
    <message>
        <source>expected WIDTHxHEIGHT of 1 to %1 each, found %2</source>
        <translation>WIDTHxHEIGHT をそれぞれ 1 から %1 で指定してください: %2</translation>
    </message>
    <message>
        <source>expected X,Y in pixels, found %1</source>
        <translation>X,Y を画素で指定してください: %1</translation>
    </message>
    <message>
        <source>expected a number from %1 to %2, found %3</source>
        <translation>%1 から %2 の数値を指定してください: %3</translation>
    </message>
    <message>
        <source>at most %1 with %2 dots per inch, found %3</source>
        <translation>最大 %1 です（%2 dpi の場合）: %3</translation>
    </message>
    <message>
        <source>only the 3-D plot is turned</source>
        <translation>回転できるのは 3D プロットだけです</translation>
    </message>
    <message>
        <source>expected a number above 0, found %1</source>
        <translation>0 より大きい数値を指定してください: %1</translation>
    </message>
    <message>
        <source>expected point or comma, found %1</source>
        <translation>point または comma を指定してください: %1</translation>
    </message>
    <message>
        <source>Shows a surface z = f(x, y) as a 3-D plot.</source>
        <translation>曲面 z = f(x, y) を 3D プロットで表示します。</translation>
    </message>
    <message>
        <source>%1; kivo-viewer --help lists the options</source>
        <translation>%1（オプションの一覧は kivo-viewer --help）</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>空です</translation>
    </message>
    <message>
        <source>expected four numbers x0:x1:y0:y1 that rise from x0 to x1 and from y0 to y1, found %1</source>
        <translation>x0 &lt; x1、y0 &lt; y1 となる 4 つの数値 x0:x1:y0:y1 を指定してください: %1</translation>
    </message>
    <message>
        <source>expected linear, nearest or inverse, found %1</source>
        <translation>linear、nearest、inverse のいずれかを指定してください: %1</translation>
    </message>
    <message>
        <source>expected the columns of x, y and z, such as 1,2,4, or all for a matrix, found %1</source>
        <translation>x、y、z の列（例: 1,2,4）、または行列なら all を指定してください: %1</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>%1 を指定してください: %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message numerus="yes">
        <source>given %1 times for %n surface(s)</source>
        <translation>
            <numerusform>%n 個の曲面に対して %1 回指定されています</numerusform>
        </translation>
    </message>
    <message>
        <source>Line over the plane of x and y whose heights are shown</source>
        <translation>高さを示す xy 平面上の線</translation>
    </message>
    <message>
        <source>Write the heights along that line as a table of distance, x, y, z, and z2 and so on of other surfaces, or - for the standard output; needs no display</source>
        <translation>その線に沿う高さを表に書き出す: distance、x、y、z、ほかの曲面は z2 以降。- は標準出力。画面は不要</translation>
    </message>
    <message>
        <source>expected X0:Y0:X1:Y1, found &quot;%1&quot;</source>
        <translation>X0:Y0:X1:Y1 を指定してください: 「%1」</translation>
    </message>
    <message>
        <source>expected two different points X0:Y0:X1:Y1, found &quot;%1&quot;</source>
        <translation>異なる 2 点を X0:Y0:X1:Y1 の形で指定してください: 「%1」</translation>
    </message>
    <message>
        <source>there is no surface</source>
        <translation>曲面がありません</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message>
        <source>unknown header entry %1</source>
        <translation>ヘッダーに不明な項目 %1 があります</translation>
    </message>
    <message>
        <source>a second entry %1</source>
        <translation>項目 %1 が 2 回あります</translation>
    </message>
    <message>
        <source>expected one value after %1</source>
        <translation>%1 の後に値が 1 つ必要です</translation>
    </message>
    <message>
        <source>not a number: %1</source>
        <translation>数値ではありません: %1</translation>
    </message>
    <message>
        <source>%1 must be a whole number of at least 2</source>
        <translation>%1 は 2 以上の整数でなければなりません</translation>
    </message>
    <message>
        <source>%1 must be positive</source>
        <translation>%1 は正の数でなければなりません</translation>
    </message>
    <message>
        <source>no values after the header</source>
        <translation>ヘッダーの後に値がありません</translation>
    </message>
    <message>
        <source>the header lacks %1</source>
        <translation>ヘッダーに %1 がありません</translation>
    </message>
    <message>
        <source>too many points; at most %1 can be shown</source>
        <translation>点が多すぎます。表示できるのは %1 個までです</translation>
    </message>
    <message>
        <source>the cells reach beyond single precision</source>
        <translation>セルの座標が単精度の範囲を超えています</translation>
    </message>
    <message>
        <source>the cells are too small for coordinates of this size</source>
        <translation>座標の大きさに対してセルが小さすぎます</translation>
    </message>
    <message>
        <source>more than %1 rows</source>
        <translation>行が %1 行より多くあります</translation>
    </message>
    <message>
        <source>expected %1 values, found %2</source>
        <translation>値は %1 個のはずですが、%2 個です</translation>
    </message>
    <message>
        <source>expected %1 rows, found %2</source>
        <translation>行は %1 行のはずですが、%2 行です</translation>
    </message>
    <message>
        <source>no place has a value of both</source>
        <translation>両方の値がある場所がありません</translation>
    </message>
    <message>
        <source>cannot open it: %1</source>
        <translation>開けません: %1</translation>
    </message>
    <message>
        <source>cannot read it: %1</source>
        <translation>読み込めません: %1</translation>
    </message>
    <message>
        <source>larger than 1 GiB</source>
        <translation>1 GiB を超えています</translation>
    </message>
    <message>
        <source>the raster is rotated</source>
        <translation>ラスターが回転しています</translation>
    </message>
    <message>
        <source>no raster band in it</source>
        <translation>ラスターのバンドがありません</translation>
    </message>
    <message>
        <source>several variables; open one of them by its whole name: %1</source>
        <translation>変数が複数あります。完全な名前で 1 つを開いてください: %1</translation>
    </message>
    <message>
        <source>there is no band %1; the last one is %2</source>
        <translation>バンド %1 はありません。最後は %2 です</translation>
    </message>
    <message>
        <source>every %1st of %2 x %3 points</source>
        <translation>%2 x %3 点から %1 点ごと</translation>
    </message>
    <message>
        <source>every %1rd of %2 x %3 points</source>
        <translation>%2 x %3 点から %1 点ごと</translation>
    </message>
    <message>
        <source>every %1th of %2 x %3 points</source>
        <translation>%2 x %3 点から %1 点ごと</translation>
    </message>
    <message>
        <source>band %1 of %2</source>
        <translation>バンド %1（全 %2）</translation>
    </message>
    <message>
        <source>there are values of %1 that lie too close to each other for the distance between the first and the last</source>
        <translation>最初から最後までの距離に比べて、%1 の値どうしが近すぎます</translation>
    </message>
    <message>
        <source>a finite number is needed here: %1</source>
        <translation>有限の数値が必要です: %1</translation>
    </message>
    <message>
        <source>number beyond single precision: %1</source>
        <translation>単精度の範囲を超える数値です: %1</translation>
    </message>
    <message>
        <source>a surface needs at least 2 x 2 points, and of these %1 x %2 lie in the region</source>
        <translation>曲面には少なくとも 2 x 2 点が必要ですが、範囲内は %1 x %2 点です</translation>
    </message>
    <message>
        <source>a surface needs at least 2 x 2 points, found %1 x %2</source>
        <translation>曲面には少なくとも 2 x 2 点が必要ですが、%1 x %2 点です</translation>
    </message>
    <message>
        <source>every value is missing</source>
        <translation>すべての値が欠けています</translation>
    </message>
    <message>
        <source>Points: x, y and z are the first three columns</source>
        <translation>点: 最初の 3 列が x、y、z</translation>
    </message>
    <message>
        <source>A matrix of values</source>
        <translation>値の行列</translation>
    </message>
    <message>
        <source>%1 numbers in each line are points, or a matrix of values; --columns 1,2,3 or --columns all says it</source>
        <translation>各行に %1 個の数値があり、点とも値の行列とも読めます。--columns 1,2,3 または --columns all で指定してください</translation>
    </message>
    <message>
        <source>no data</source>
        <translation>データがありません</translation>
    </message>
    <message>
        <source>the x values must rise or fall from column to column</source>
        <translation>x の値は列ごとに増えるか減るかしなければなりません</translation>
    </message>
    <message>
        <source>no values after the x values</source>
        <translation>x の値の後に値がありません</translation>
    </message>
    <message>
        <source>the y values must rise or fall from row to row</source>
        <translation>y の値は行ごとに増えるか減るかしなければなりません</translation>
    </message>
    <message>
        <source>%1 of %2 x %3 points are not in the file</source>
        <translation>%2 x %3 点のうち %1 点がファイルにありません</translation>
    </message>
    <message>
        <source>x, y and z from the columns %1, %2 and %3 of %4</source>
        <translation>%4 列のうち %1、%2、%3 が x、y、z</translation>
    </message>
    <message numerus="yes">
        <source>expected x, y and z, found %n value(s)</source>
        <translation>
            <numerusform>x、y、z のはずですが、値は %n 個です</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>expected %1 values, found %n value(s)</source>
        <translation>
            <numerusform>値は %1 個のはずですが、%n 個です</numerusform>
        </translation>
    </message>
    <message>
        <source>no points</source>
        <translation>点がありません</translation>
    </message>
    <message>
        <source>no points after the column names</source>
        <translation>列名の後に点がありません</translation>
    </message>
    <message>
        <source>nearest</source>
        <translation>最近傍</translation>
    </message>
    <message>
        <source>linear</source>
        <translation>線形</translation>
    </message>
    <message>
        <source>inverse</source>
        <translation>逆距離</translation>
    </message>
    <message>
        <source>the sample terrain is missing from the program</source>
        <translation>見本の地形がプログラムにありません</translation>
    </message>
    <message>
        <source>the points lie too close to each other for triangles</source>
        <translation>点どうしが近すぎて三角形を作れません</translation>
    </message>
    <message>
        <source>no grid can be made of the points</source>
        <translation>点から格子を作れません</translation>
    </message>
    <message>
        <source>a surface needs at least three points that do not lie on a line</source>
        <translation>曲面には、一直線上にない 3 点以上が必要です</translation>
    </message>
    <message>
        <source>%1 scattered points, %2 on cells of %3</source>
        <translation>散在する %1 点、%2、セルの大きさ %3</translation>
    </message>
    <message>
        <source>the ranges of x and y must rise</source>
        <translation>x と y の範囲は増えなければなりません</translation>
    </message>
    <message>
        <source>the file ends before %1</source>
        <translation>ファイルが途中で終わっています: %1 がありません</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>%1 のはずですが、%2 です</translation>
    </message>
    <message>
        <source>the range of x</source>
        <translation>x の範囲</translation>
    </message>
    <message>
        <source>the range of y</source>
        <translation>y の範囲</translation>
    </message>
    <message>
        <source>the range of z</source>
        <translation>z の範囲</translation>
    </message>
    <message>
        <source>the last value</source>
        <translation>最後の値</translation>
    </message>
    <message>
        <source>the number of columns</source>
        <translation>列数</translation>
    </message>
    <message>
        <source>the number of rows</source>
        <translation>行数</translation>
    </message>
    <message>
        <source>more than %1 values</source>
        <translation>値が %1 個より多くあります</translation>
    </message>
    <message>
        <source>the file is cut off</source>
        <translation>ファイルが途中で切れています</translation>
    </message>
    <message>
        <source>values come before the size of the grid</source>
        <translation>格子の大きさより前に値があります</translation>
    </message>
    <message>
        <source>%1 without names</source>
        <translation>名前のない %1 列</translation>
    </message>
    <message>
        <source>the comma of %1 may be a decimal mark or part thousands; --decimal comma or --decimal point says it</source>
        <translation>%1 のコンマは小数点とも桁区切りとも読めます。--decimal comma または --decimal point で指定してください</translation>
    </message>
    <message>
        <source>Commas are decimal marks</source>
        <translation>コンマは小数点</translation>
    </message>
    <message>
        <source>there is no column %1; its columns are %2</source>
        <translation>列 %1 はありません。あるのは %2 です</translation>
    </message>
    <message numerus="yes">
        <source>expected x, y and z, found %n value(s); --columns says which of them these are</source>
        <translation>
            <numerusform>x、y、z のはずですが、値は %n 個です。どれかを --columns で指定してください</numerusform>
        </translation>
    </message>
    <message>
        <source>this is not a text file in UTF-8 or ASCII</source>
        <translation>UTF-8 または ASCII のテキストファイルではありません</translation>
    </message>
    <message>
        <source>Band %1</source>
        <translation>バンド %1</translation>
    </message>
    <message>
        <source>%1 bands; --band says which</source>
        <translation>バンドが %1 個あります。--band で指定してください</translation>
    </message>
    <message>
        <source>the method %1 is GDAL&apos;s, and this program was built without it</source>
        <translation>方法 %1 には GDAL が必要ですが、このプログラムは GDAL なしで構築されています</translation>
    </message>
    <message>
        <source>the points are scattered; --grid says how a grid is made of them</source>
        <translation>点が散在しています。格子の作り方を --grid で指定してください</translation>
    </message>
    <message>
        <source>its cells have no size or place</source>
        <translation>セルの大きさまたは位置がありません</translation>
    </message>
</context>
<context>
    <name>Formats</name>
    <message>
        <source>Grids read:</source>
        <translation>読み込める格子:</translation>
    </message>
    <message>
        <source>ESRI ASCII grid</source>
        <translation>ESRI ASCII グリッド</translation>
    </message>
    <message>
        <source>Surfer grid, versions 6 and 7</source>
        <translation>Surfer グリッド（バージョン 6、7）</translation>
    </message>
    <message>
        <source>Table of points x, y, z</source>
        <translation>点の表 x、y、z</translation>
    </message>
    <message>
        <source>Matrix of values</source>
        <translation>値の行列</translation>
    </message>
    <message>
        <source>Grids read by GDAL:</source>
        <translation>GDAL で読み込める格子:</translation>
    </message>
    <message>
        <source>Pictures written:</source>
        <translation>書き出せる画像:</translation>
    </message>
</context>
<context>
    <name>Formula</name>
    <message>
        <source>the range is too narrow for %1 values</source>
        <translation>範囲が狭すぎて %1 個の値を取れません</translation>
    </message>
    <message>
        <source>%1 at position %2</source>
        <translation>%1（%2 文字目）</translation>
    </message>
    <message>
        <source>formula: one value is needed, not several parted by commas</source>
        <translation>数式: 値は 1 つだけにしてください。コンマで区切った複数の値は使えません</translation>
    </message>
    <message>
        <source>expected from:to:count, found %1</source>
        <translation>始点:終点:個数 を指定してください: %1</translation>
    </message>
    <message>
        <source>expected two numbers in %1</source>
        <translation>数値が 2 つ必要です: %1</translation>
    </message>
    <message>
        <source>the range is empty: %1</source>
        <translation>範囲が空です: %1</translation>
    </message>
    <message>
        <source>expected a count from 2 to %1 in %2</source>
        <translation>個数は 2 から %1 で指定してください: %2</translation>
    </message>
    <message>
        <source>formula: %1</source>
        <translation>数式: %1</translation>
    </message>
    <message>
        <source>formula: no finite value in this range</source>
        <translation>数式: この範囲に有限の値がありません</translation>
    </message>
</context>
<context>
    <name>Input</name>
    <message>
        <source>Arrows</source>
        <translation>矢印キー</translation>
    </message>
    <message>
        <source>Turn the 3-D plot by five degrees, or move a flat one</source>
        <translation>3D プロットを 5 度回す、平面図は動かす</translation>
    </message>
    <message>
        <source>Shift+arrows</source>
        <translation>Shift+矢印キー</translation>
    </message>
    <message>
        <source>Move the plot</source>
        <translation>プロットを動かす</translation>
    </message>
    <message>
        <source>Plus, minus</source>
        <translation>+、-</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>拡大・縮小する</translation>
    </message>
    <message>
        <source>Left button</source>
        <translation>左ボタン</translation>
    </message>
    <message>
        <source>Turn the 3-D plot like a turntable</source>
        <translation>3D プロットを回転台のように回す</translation>
    </message>
    <message>
        <source>Right button</source>
        <translation>右ボタン</translation>
    </message>
    <message>
        <source>Turn the 3-D plot freely</source>
        <translation>3D プロットを自由に回す</translation>
    </message>
    <message>
        <source>Shift + either, or middle</source>
        <translation>Shift + 左右、または中ボタン</translation>
    </message>
    <message>
        <source>Ctrl + either</source>
        <translation>Ctrl + 左右ボタン</translation>
    </message>
    <message>
        <source>Zoom: down enlarges, up shrinks</source>
        <translation>拡大・縮小する（下で拡大、上で縮小）</translation>
    </message>
    <message>
        <source>Double click</source>
        <translation>ダブルクリック</translation>
    </message>
    <message>
        <source>Bring what is there to the middle</source>
        <translation>その場所を中央に移す</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>ホイール</translation>
    </message>
    <message>
        <source>Zoom at the pointer</source>
        <translation>ポインターの位置で拡大・縮小する</translation>
    </message>
    <message>
        <source>Move, while tracing</source>
        <translation>トレース中に移動</translation>
    </message>
    <message>
        <source>Show the point of the surface under the pointer</source>
        <translation>ポインターの下の曲面の点を示す</translation>
    </message>
    <message>
        <source>Drop a file</source>
        <translation>ファイルをドロップ</translation>
    </message>
    <message>
        <source>Open it; of several the others lie over the first</source>
        <translation>開く。複数なら 2 番目以降を最初に重ねる</translation>
    </message>
    <message>
        <source>Shift + drop a file</source>
        <translation>Shift + ファイルをドロップ</translation>
    </message>
    <message>
        <source>Lay it over what is shown</source>
        <translation>表示中の曲面に重ねる</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>Left button, with the profile</source>
        <translation>左ボタン（断面の表示中）</translation>
    </message>
    <message>
        <source>Draw the line in the flat plot of XY</source>
        <translation>XY の平面図に線を引く</translation>
    </message>
</context>
<context>
    <name>Lists</name>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1、%2 のいずれか</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>How many times as long Z is drawn as X and Y</source>
        <translation>Z が X、Y の何倍の縮尺で描かれているか</translation>
    </message>
    <message>
        <source>cannot draw: %1</source>
        <translation>描画できません: %1</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Surfaces</source>
        <translation>曲面</translation>
    </message>
    <message>
        <source>Points and curves</source>
        <translation>点と曲線</translation>
    </message>
    <message>
        <source>Reset all settings</source>
        <translation>すべての設定を元に戻す</translation>
    </message>
    <message>
        <source>Exaggeration %1</source>
        <translation>鉛直誇張率 %1</translation>
    </message>
    <message>
        <source>Keys and mouse</source>
        <translation>キーとマウス</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>キー</translation>
    </message>
    <message>
        <source>Keys, continued</source>
        <translation>キー（続き）</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>マウス</translation>
    </message>
    <message>
        <source>About Kivo Viewer</source>
        <translation>Kivo Viewer について</translation>
    </message>
    <message>
        <source>Shows surfaces z = f(x, y), drawn by the library KivoFunctionPlotter.</source>
        <translation>曲面 z = f(x, y) を表示します。描画はライブラリ KivoFunctionPlotter によります。</translation>
    </message>
    <message>
        <source>MIT licence.</source>
        <translation>MIT ライセンス。</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>画像の保存</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>幅(&amp;W)</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>画素</translation>
    </message>
    <message>
        <source>&amp;Height</source>
        <translation>高さ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Resolution</source>
        <translation>解像度(&amp;R)</translation>
    </message>
    <message>
        <source>dots per inch</source>
        <translation>dpi</translation>
    </message>
    <message>
        <source>Texts, lines and points keep their size on paper: with more dots per inch they have more pixels</source>
        <translation>文字、線、点の紙の上での大きさは変わりません。解像度を上げると画素数が増えます</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>すべてのファイル</translation>
    </message>
    <message>
        <source>Grids of points and sessions</source>
        <translation>格子とセッション</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>メモリが足りません。</translation>
    </message>
    <message>
        <source>Open a grid of points</source>
        <translation>格子を開く</translation>
    </message>
    <message>
        <source>Add surfaces</source>
        <translation>曲面の追加</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>まだありません</translation>
    </message>
    <message>
        <source>Add curves</source>
        <translation>曲線の追加</translation>
    </message>
    <message>
        <source>Add measure points</source>
        <translation>測定点の追加</translation>
    </message>
    <message>
        <source>Points x, y, z</source>
        <translation>点 x、y、z</translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation>画像の保存</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 を保存しました</translation>
    </message>
    <message>
        <source>Copied the picture</source>
        <translation>画像をコピーしました</translation>
    </message>
    <message>
        <source>the printer cannot be used</source>
        <translation>プリンターを使えません</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>セッション</translation>
    </message>
    <message>
        <source>Save the session</source>
        <translation>セッションの保存</translation>
    </message>
    <message>
        <source>Read again</source>
        <translation>読み込み直しました</translation>
    </message>
    <message>
        <source>Subtract a grid of points</source>
        <translation>格子を差し引く</translation>
    </message>
    <message>
        <source>The first surface is of no file</source>
        <translation>最初の曲面はファイルのものではありません</translation>
    </message>
    <message>
        <source>Reading...</source>
        <translation>読み込んでいます...</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>断面</translation>
    </message>
    <message>
        <source>Save the profile</source>
        <translation>断面の保存</translation>
    </message>
    <message>
        <source>Tables</source>
        <translation>表</translation>
    </message>
    <message>
        <source>Save the picture of the profile</source>
        <translation>断面の画像の保存</translation>
    </message>
    <message>
        <source>it cannot be written</source>
        <translation>書き込めません</translation>
    </message>
    <message>
        <source>Drag a rectangle with the left button; Escape ends it</source>
        <translation>左ボタンで矩形をドラッグします。Escapeで中止します</translation>
    </message>
    <message>
        <source>Preparing the plot...</source>
        <translation>プロットを準備しています...</translation>
    </message>
    <message>
        <source>Drawing the picture...</source>
        <translation>画像を描いています...</translation>
    </message>
</context>
<context>
    <name>Menu</name>
    <message>
        <source>%1, or not</source>
        <translation>%1（オン／オフ）</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>開く(&amp;O)...</translation>
    </message>
    <message>
        <source>Open a grid of points, or a session</source>
        <translation>格子またはセッションを開く</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>最近使ったファイル(&amp;R)</translation>
    </message>
    <message>
        <source>Open a grid from before</source>
        <translation>以前の格子を開く</translation>
    </message>
    <message>
        <source>Add sur&amp;face...</source>
        <translation>曲面を追加(&amp;F)...</translation>
    </message>
    <message>
        <source>Lay other grids of points over the one that is shown</source>
        <translation>表示中の格子にほかの格子を重ねる</translation>
    </message>
    <message>
        <source>Su&amp;btract a grid...</source>
        <translation>格子を差し引く(&amp;B)...</translation>
    </message>
    <message>
        <source>Show by how much the first surface differs from another grid</source>
        <translation>最初の曲面とほかの格子の差を示す</translation>
    </message>
    <message>
        <source>Add measure &amp;points...</source>
        <translation>測定点を追加(&amp;P)...</translation>
    </message>
    <message>
        <source>Add measure points</source>
        <translation>測定点を追加する</translation>
    </message>
    <message>
        <source>Add &amp;curves...</source>
        <translation>曲線を追加(&amp;C)...</translation>
    </message>
    <message>
        <source>Add curves</source>
        <translation>曲線を追加する</translation>
    </message>
    <message>
        <source>Sa&amp;ve session...</source>
        <translation>セッションを保存(&amp;V)...</translation>
    </message>
    <message>
        <source>Save files, settings and view, to be opened again</source>
        <translation>ファイル、設定、視点を保存し、後で開けるようにする</translation>
    </message>
    <message>
        <source>Read the files again</source>
        <translation>ファイルを読み込み直す</translation>
    </message>
    <message>
        <source>&amp;Watch files</source>
        <translation>ファイルを監視(&amp;W)</translation>
    </message>
    <message>
        <source>Read files again when they change</source>
        <translation>ファイルが変わったら読み込み直す</translation>
    </message>
    <message>
        <source>&amp;Save picture...</source>
        <translation>画像を保存(&amp;S)...</translation>
    </message>
    <message>
        <source>Save the plot as a picture of any size</source>
        <translation>プロットを好きな大きさの画像で保存する</translation>
    </message>
    <message>
        <source>Cop&amp;y picture</source>
        <translation>画像をコピー(&amp;Y)</translation>
    </message>
    <message>
        <source>Copy the plot to the clipboard</source>
        <translation>プロットをクリップボードにコピーする</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>印刷(&amp;I)...</translation>
    </message>
    <message>
        <source>Print the plot</source>
        <translation>プロットを印刷する</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>End the program</source>
        <translation>プログラムを終了する</translation>
    </message>
    <message>
        <source>&amp;Plot</source>
        <translation>プロット(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;3-D plot</source>
        <translation>3D プロット(&amp;3)</translation>
    </message>
    <message>
        <source>Show the 3-D plot</source>
        <translation>3D プロットを表示する</translation>
    </message>
    <message>
        <source>&amp;XY projection</source>
        <translation>XY 投影(&amp;X)</translation>
    </message>
    <message>
        <source>Show the flat plot of XY</source>
        <translation>XY の平面図を表示する</translation>
    </message>
    <message>
        <source>&amp;YZ projection</source>
        <translation>YZ 投影(&amp;Y)</translation>
    </message>
    <message>
        <source>Show the flat plot of YZ</source>
        <translation>YZ の平面図を表示する</translation>
    </message>
    <message>
        <source>X&amp;Z projection</source>
        <translation>XZ 投影(&amp;Z)</translation>
    </message>
    <message>
        <source>Show the flat plot of XZ</source>
        <translation>XZ の平面図を表示する</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Reset view</source>
        <translation>視点を元に戻す(&amp;R)</translation>
    </message>
    <message>
        <source>Undo turning, moving and zooming</source>
        <translation>回転、移動、拡大・縮小を取り消す</translation>
    </message>
    <message>
        <source>Sur&amp;faces</source>
        <translation>曲面(&amp;F)</translation>
    </message>
    <message>
        <source>Show or hide the list of surfaces</source>
        <translation>曲面の一覧を表示／非表示にする</translation>
    </message>
    <message>
        <source>&amp;Points and curves</source>
        <translation>点と曲線(&amp;P)</translation>
    </message>
    <message>
        <source>Show or hide the list of points and curves</source>
        <translation>点と曲線の一覧を表示／非表示にする</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>設定(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;%1 %2...</source>
        <translation>%2(&amp;%1)...</translation>
    </message>
    <message>
        <source>Go to the settings: %1</source>
        <translation>設定に移る: %1</translation>
    </message>
    <message>
        <source>Settings &amp;panel</source>
        <translation>設定パネル(&amp;P)</translation>
    </message>
    <message>
        <source>Show or hide the settings</source>
        <translation>設定を表示／非表示にする</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>Take the last change of a setting back</source>
        <translation>設定の最後の変更を取り消す</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>やり直す(&amp;O)</translation>
    </message>
    <message>
        <source>Make it again</source>
        <translation>取り消した変更をやり直す</translation>
    </message>
    <message>
        <source>&amp;Reset all settings</source>
        <translation>すべての設定を元に戻す(&amp;R)</translation>
    </message>
    <message>
        <source>Take all settings back</source>
        <translation>すべての設定を初めの状態に戻す</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Keys and mouse</source>
        <translation>キーとマウス(&amp;K)</translation>
    </message>
    <message>
        <source>Tell what keys and mouse do</source>
        <translation>キーとマウスの働きを示す</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>バージョン情報(&amp;A)</translation>
    </message>
    <message>
        <source>Tell what this program is</source>
        <translation>このプログラムについて示す</translation>
    </message>
    <message>
        <source>Read a&amp;gain</source>
        <translation>読み込み直す(&amp;A)</translation>
    </message>
    <message>
        <source>Read &amp;as...</source>
        <translation>読み方を選ぶ(&amp;D)...</translation>
    </message>
    <message>
        <source>See the first lines of the file, and choose how it is read</source>
        <translation>ファイルの最初の行を見て、読み方を選ぶ</translation>
    </message>
    <message>
        <source>Profi&amp;le</source>
        <translation>断面(&amp;L)</translation>
    </message>
    <message>
        <source>Draw a line in the flat plot of XY and show the heights along it, or not</source>
        <translation>XY の平面図に引いた線に沿う高さ（オン／オフ）</translation>
    </message>
    <message>
        <source>&amp;Mark a region</source>
        <translation>範囲の指定(&amp;M)</translation>
    </message>
    <message>
        <source>Drag a rectangle in the flat plot of XY, to read that part in full detail</source>
        <translation>XY の平面図で矩形をドラッグし、その部分を詳細に読み込む</translation>
    </message>
    <message>
        <source>Read t&amp;he whole</source>
        <translation>全体の再読み込み(&amp;H)</translation>
    </message>
    <message>
        <source>Read the first surface&apos;s file without a region</source>
        <translation>最初の面のファイルを範囲指定なしで読み込む</translation>
    </message>
</context>
<context>
    <name>Pictures</name>
    <message>
        <source>a picture&apos;s name must end in %1</source>
        <translation>画像の名前の末尾は %1 でなければなりません</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>標準出力</translation>
    </message>
    <message>
        <source>cannot write it: %1</source>
        <translation>書き込めません: %1</translation>
    </message>
    <message>
        <source>the page cannot be made</source>
        <translation>ページを作れません</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>ファイルではありません</translation>
    </message>
    <message>
        <source>JPEG has no transparency; take another format</source>
        <translation>JPEG は透明にできません。ほかの形式を選んでください</translation>
    </message>
</context>
<context>
    <name>Plot</name>
    <message>
        <source>cannot draw: %1</source>
        <translation>描画できません: %1</translation>
    </message>
    <message>
        <source>the %1 axis must rise, not go from %2 to %3</source>
        <translation>%1 軸は増える向きでなければなりません。%2 から %3 にはできません</translation>
    </message>
    <message>
        <source>the colours need a wider range than %1</source>
        <translation>色の範囲 %1 は狭すぎます</translation>
    </message>
    <message>
        <source>the colours cannot have the range %1</source>
        <translation>色の範囲を %1 にはできません</translation>
    </message>
    <message>
        <source>it lies too far from the first surface to be shown with it</source>
        <translation>最初の曲面から離れすぎていて、一緒に表示できません</translation>
    </message>
    <message>
        <source>it cannot be laid over another surface</source>
        <translation>ほかの曲面に重ねられません</translation>
    </message>
</context>
<context>
    <name>PointsPanel</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>色</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Click the box to show or hide the points, twice the name to change it; Delete takes them away</source>
        <translation>チェックで点を表示／非表示、名前はダブルクリックで変更、Delete で取り除きます</translation>
    </message>
    <message>
        <source>Click to choose another colour</source>
        <translation>クリックして色を変えます</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>曲線</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>点</translation>
    </message>
    <message>
        <source>Colour of %1</source>
        <translation>%1 の色</translation>
    </message>
</context>
<context>
    <name>Preview</name>
    <message>
        <source>semicolons</source>
        <translation>セミコロン</translation>
    </message>
    <message>
        <source>commas</source>
        <translation>コンマ</translation>
    </message>
    <message>
        <source>tabs</source>
        <translation>タブ</translation>
    </message>
    <message>
        <source>blanks</source>
        <translation>空白</translation>
    </message>
    <message>
        <source>decimal commas</source>
        <translation>小数点はコンマ</translation>
    </message>
    <message>
        <source>decimal points</source>
        <translation>小数点は点</translation>
    </message>
    <message>
        <source>A matrix of values: fields between %1, %2</source>
        <translation>値の行列: 区切りは%1、%2</translation>
    </message>
    <message>
        <source>Points: fields between %1, %2</source>
        <translation>点: 区切りは%1、%2</translation>
    </message>
    <message>
        <source>Points: fields between %1, %2, names of columns first</source>
        <translation>点: 区切りは%1、%2、先頭は列名</translation>
    </message>
    <message>
        <source>No text of whole lines</source>
        <translation>行からなるテキストではありません</translation>
    </message>
    <message>
        <source>A grid whose header says how it is read</source>
        <translation>ヘッダーで読み方が決まる格子</translation>
    </message>
</context>
<context>
    <name>ProfilePanel</name>
    <message>
        <source>Press, drag and release the left button in the flat plot of XY: the heights along that line are shown here.</source>
        <translation>XY の平面図で左ボタンを押して線を引くと、その線に沿う高さがここに表示されます。</translation>
    </message>
    <message>
        <source>Save as &amp;CSV...</source>
        <translation>CSV で保存(&amp;C)...</translation>
    </message>
    <message>
        <source>Save as p&amp;icture...</source>
        <translation>画像で保存(&amp;I)...</translation>
    </message>
    <message>
        <source>Distance %1</source>
        <translation>距離 %1</translation>
    </message>
</context>
<context>
    <name>ReadAsDialog</name>
    <message>
        <source>Read as</source>
        <translation>読み方</translation>
    </message>
    <message>
        <source>&amp;Table of</source>
        <translation>表の内容(&amp;T)</translation>
    </message>
    <message>
        <source>What it seems to be</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>点</translation>
    </message>
    <message>
        <source>Values, a matrix</source>
        <translation>値の行列</translation>
    </message>
    <message>
        <source>Column of &amp;x</source>
        <translation>x の列(&amp;X)</translation>
    </message>
    <message>
        <source>Column of &amp;y</source>
        <translation>y の列(&amp;Y)</translation>
    </message>
    <message>
        <source>Column of &amp;z</source>
        <translation>z の列(&amp;Z)</translation>
    </message>
    <message>
        <source>&amp;Decimal mark</source>
        <translation>小数点(&amp;D)</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>点</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>コンマ</translation>
    </message>
    <message>
        <source>&amp;Grid of scattered points</source>
        <translation>散在する点の格子(&amp;G)</translation>
    </message>
    <message>
        <source>Asked for</source>
        <translation>確認する</translation>
    </message>
    <message>
        <source>Linear, on triangles</source>
        <translation>線形（三角形分割）</translation>
    </message>
    <message>
        <source>Nearest point</source>
        <translation>最近傍の点</translation>
    </message>
    <message>
        <source>Mean by inverse distance</source>
        <translation>逆距離加重平均</translation>
    </message>
    <message>
        <source>C&amp;ell size</source>
        <translation>セルの大きさ(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Reach of a point</source>
        <translation>点の及ぶ距離(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Band</source>
        <translation>バンド(&amp;B)</translation>
    </message>
    <message>
        <source>Re&amp;gion</source>
        <translation>範囲(&amp;N)</translation>
    </message>
    <message>
        <source>From the density of the points</source>
        <translation>点の密度による</translation>
    </message>
</context>
<context>
    <name>ReadDialogs</name>
    <message>
        <source>This file may be read in several ways:</source>
        <translation>このファイルの読み方を選んでください:</translation>
    </message>
    <message>
        <source>Scattered points</source>
        <translation>散在する点</translation>
    </message>
    <message>
        <source>Linear, on triangles</source>
        <translation>線形（三角形分割）</translation>
    </message>
    <message>
        <source>Nearest point</source>
        <translation>最近傍の点</translation>
    </message>
    <message>
        <source>Mean by inverse distance</source>
        <translation>逆距離加重平均</translation>
    </message>
    <message>
        <source>&amp;Method</source>
        <translation>方法(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Cell size</source>
        <translation>セルの大きさ(&amp;C)</translation>
    </message>
    <message numerus="yes">
        <source>%n points, of which a grid is made</source>
        <translation>
            <numerusform>%n 点から格子を作ります</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Read as...</source>
        <translation>読み方を選ぶ(&amp;R)...</translation>
    </message>
</context>
<context>
    <name>Sessions</name>
    <message>
        <source>it names no surface</source>
        <translation>曲面の指定がありません</translation>
    </message>
    <message>
        <source>no session: %1</source>
        <translation>セッションではありません: %1</translation>
    </message>
    <message>
        <source>no session</source>
        <translation>セッションではありません</translation>
    </message>
    <message>
        <source>a session of a later version</source>
        <translation>新しいバージョンのセッションです</translation>
    </message>
    <message>
        <source>cannot be written: %1</source>
        <translation>書き込めません: %1</translation>
    </message>
    <message>
        <source>a name of a file ends before its text does</source>
        <translation>ファイル名が途中で終わっています</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>expected a colour such as ff8000 or red, found &quot;%1&quot;</source>
        <translation>ff8000 や red のような色を指定してください: 「%1」</translation>
    </message>
    <message>
        <source>expected values, or a colour such as ff8000 or red, found &quot;%1&quot;</source>
        <translation>values、または ff8000 や red のような色を指定してください: 「%1」</translation>
    </message>
    <message>
        <source>Titles</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>Contours</source>
        <translation>等高線</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>線</translation>
    </message>
    <message>
        <source>%1 axis</source>
        <translation>%1 軸</translation>
    </message>
    <message>
        <source>From</source>
        <translation>最小</translation>
    </message>
    <message>
        <source>First tick value of the %1 axis</source>
        <translation>%1 軸の最初の値</translation>
    </message>
    <message>
        <source>To</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>Last tick value of the %1 axis</source>
        <translation>%1 軸の最後の値</translation>
    </message>
    <message>
        <source>Ticks</source>
        <translation>目盛の数</translation>
    </message>
    <message>
        <source>Number of ticks of the %1 axis</source>
        <translation>%1 軸の目盛の数</translation>
    </message>
    <message>
        <source>Decimals</source>
        <translation>小数桁数</translation>
    </message>
    <message>
        <source>Decimals of the labels of the %1 axis</source>
        <translation>%1 軸の目盛の小数桁数</translation>
    </message>
    <message>
        <source>Numbers</source>
        <translation>数値</translation>
    </message>
    <message>
        <source>Inverse %1 axis</source>
        <translation>%1 軸を反転</translation>
    </message>
    <message>
        <source>Mirror the %1 axis of the 3-D plot</source>
        <translation>3D プロットの %1 軸を反転する</translation>
    </message>
    <message>
        <source>Contours of equal %1</source>
        <translation>%1 の等値線</translation>
    </message>
    <message>
        <source>Contours of equal %1 in the 3-D plot</source>
        <translation>3D プロットに %1 の等しい線を描く</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>色</translation>
    </message>
    <message>
        <source>%1 axis: lowest value</source>
        <translation>%1 軸: 最小値</translation>
    </message>
    <message>
        <source>Colour of the smallest value, for the surface and its legend</source>
        <translation>最小値の色（曲面とその凡例）</translation>
    </message>
    <message>
        <source>Colour of the smallest value, for the legend of the flat plot along %1</source>
        <translation>最小値の色（%1 方向の平面図の凡例）</translation>
    </message>
    <message>
        <source>%1 axis: highest value</source>
        <translation>%1 軸: 最大値</translation>
    </message>
    <message>
        <source>Colour of the largest value, for the surface and its legend</source>
        <translation>最大値の色（曲面とその凡例）</translation>
    </message>
    <message>
        <source>Colour of the largest value, for the legend of the flat plot along %1</source>
        <translation>最大値の色（%1 方向の平面図の凡例）</translation>
    </message>
    <message>
        <source>Levels</source>
        <translation>レベル数</translation>
    </message>
    <message>
        <source>Number of contour levels of each axis</source>
        <translation>各軸の等高線のレベル数</translation>
    </message>
    <message>
        <source>Interval of z</source>
        <translation>z の間隔</translation>
    </message>
    <message>
        <source>Distance of the contour levels of equal z; 0 for as many as there are levels</source>
        <translation>z の等高線の間隔。0 はレベル数による</translation>
    </message>
    <message>
        <source>Base of z</source>
        <translation>z の基準値</translation>
    </message>
    <message>
        <source>One of the contour levels, where they have an interval</source>
        <translation>間隔を指定したときに必ず通るレベル</translation>
    </message>
    <message>
        <source>Filled contours</source>
        <translation>等高線を塗りつぶす</translation>
    </message>
    <message>
        <source>Colours between the contours of the flat plot of XY</source>
        <translation>XY 平面図の等高線の間を塗る</translation>
    </message>
    <message>
        <source>Grid lines</source>
        <translation>グリッド線</translation>
    </message>
    <message>
        <source>Lines from the ticks across the back planes</source>
        <translation>目盛から背面に延びる線</translation>
    </message>
    <message>
        <source>Without lines from the ticks across the back planes</source>
        <translation>目盛から背面に延びる線を描かない</translation>
    </message>
    <message>
        <source>Frame lines</source>
        <translation>メッシュ線</translation>
    </message>
    <message>
        <source>Lines on the surface</source>
        <translation>曲面上の線</translation>
    </message>
    <message>
        <source>Without lines on the surface</source>
        <translation>曲面上の線を描かない</translation>
    </message>
    <message>
        <source>Columns per frame line</source>
        <translation>メッシュ線の列間隔</translation>
    </message>
    <message>
        <source>Columns from one frame line to the next</source>
        <translation>メッシュ線から次の線までの列数</translation>
    </message>
    <message>
        <source>Rows per frame line</source>
        <translation>メッシュ線の行間隔</translation>
    </message>
    <message>
        <source>Rows from one frame line to the next</source>
        <translation>メッシュ線から次の線までの行数</translation>
    </message>
    <message>
        <source>Frame line colour</source>
        <translation>メッシュ線の色</translation>
    </message>
    <message>
        <source>Colour of the lines on the surface</source>
        <translation>曲面上の線の色</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Colour behind the plot</source>
        <translation>プロットの背景色</translation>
    </message>
    <message>
        <source>Ink</source>
        <translation>前景</translation>
    </message>
    <message>
        <source>Colour of texts and of the lines of the axes</source>
        <translation>文字と軸の線の色</translation>
    </message>
    <message>
        <source>From low to high</source>
        <translation>配色</translation>
    </message>
    <message>
        <source>Range of values</source>
        <translation>値の範囲</translation>
    </message>
    <message>
        <source>Values of Z with the first and the last colour, instead of those of the data</source>
        <translation>最初と最後の色に当てる Z の値（データの範囲の代わり）</translation>
    </message>
    <message>
        <source>Colours follow the Z axis</source>
        <translation>色を Z 軸に合わせる</translation>
    </message>
    <message>
        <source>First and last colour at the ends of the Z axis</source>
        <translation>最初と最後の色を Z 軸の両端に当てる</translation>
    </message>
    <message>
        <source>All axes: lowest value</source>
        <translation>全軸: 最小値</translation>
    </message>
    <message>
        <source>Colour of the smallest value, for axes without one of their own</source>
        <translation>最小値の色（個別の色がない軸）</translation>
    </message>
    <message>
        <source>All axes: highest value</source>
        <translation>全軸: 最大値</translation>
    </message>
    <message>
        <source>Colour of the largest value, for axes without one of their own</source>
        <translation>最大値の色（個別の色がない軸）</translation>
    </message>
    <message>
        <source>Legend</source>
        <translation>凡例</translation>
    </message>
    <message>
        <source>Colour legend</source>
        <translation>色の凡例</translation>
    </message>
    <message>
        <source>The bar of colours with its numbers</source>
        <translation>数値付きのカラーバー</translation>
    </message>
    <message>
        <source>Without the bar of colours with its numbers</source>
        <translation>数値付きのカラーバーを表示しない</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>What the colours of Z mean, above their bar</source>
        <translation>Z の色の意味（カラーバーの上に表示）</translation>
    </message>
    <message>
        <source>Decimals of the legend&apos;s labels, where they are set</source>
        <translation>凡例の小数桁数（桁数を決めたとき）</translation>
    </message>
    <message>
        <source>Names of measure groups</source>
        <translation>測定点グループの名前</translation>
    </message>
    <message>
        <source>A list of the measure groups in the corner of the 3-D plot</source>
        <translation>3D プロットの隅に測定点グループの一覧を表示する</translation>
    </message>
    <message>
        <source>View</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Grid always behind surface</source>
        <translation>グリッドを常に曲面の後ろに</translation>
    </message>
    <message>
        <source>A grid that stands behind the surface from every side</source>
        <translation>どの方向から見ても曲面の後ろにあるグリッド</translation>
    </message>
    <message>
        <source>Without a grid that stands behind the surface from every side</source>
        <translation>グリッドの位置を固定する</translation>
    </message>
    <message>
        <source>Auto aspect</source>
        <translation>縦横比を自動調整</translation>
    </message>
    <message>
        <source>A box of the same shape whatever the ranges of its axes</source>
        <translation>軸の範囲によらず箱の形を一定にする</translation>
    </message>
    <message>
        <source>Without a box of the same shape whatever the ranges of its axes</source>
        <translation>箱の形を軸の範囲に合わせる</translation>
    </message>
    <message>
        <source>Exaggeration</source>
        <translation>鉛直誇張率</translation>
    </message>
    <message>
        <source>How many times as long Z is drawn as X and Y, which have one scale then; 0 for lengths as they follow from the ranges</source>
        <translation>X、Y（同じ縮尺）に対する Z の倍率。0 は軸の範囲による長さ</translation>
    </message>
    <message>
        <source>Trace the pointer</source>
        <translation>ポインターをトレース</translation>
    </message>
    <message>
        <source>Show the point of the surface under the pointer</source>
        <translation>ポインターの下の曲面の点を示す</translation>
    </message>
    <message>
        <source>Reduce while moving</source>
        <translation>操作中は点を間引く</translation>
    </message>
    <message>
        <source>Fewer points of large grids while the plot moves</source>
        <translation>プロットを動かす間、大きな格子の点を間引く</translation>
    </message>
    <message>
        <source>Without fewer points of large grids while the plot moves</source>
        <translation>プロットを動かす間も、すべての点を描く</translation>
    </message>
    <message>
        <source>Keep Z upright</source>
        <translation>Z を上向きに保つ</translation>
    </message>
    <message>
        <source>Left button and arrows turn it like a turntable</source>
        <translation>左ボタンと矢印キーで回転台のように回す</translation>
    </message>
    <message>
        <source>Left button and arrows turn it freely</source>
        <translation>左ボタンと矢印キーで自由に回す</translation>
    </message>
    <message>
        <source>Axes fit all surfaces</source>
        <translation>軸を全曲面に合わせる</translation>
    </message>
    <message>
        <source>A box as large as all surfaces together</source>
        <translation>すべての曲面が入る大きさの箱</translation>
    </message>
    <message>
        <source>Without a box as large as all surfaces together</source>
        <translation>最初の曲面に合わせた大きさの箱</translation>
    </message>
    <message>
        <source>Digits for the range</source>
        <translation>桁数を範囲に合わせる</translation>
    </message>
    <message>
        <source>Coordinates of the traced point with the digits that the axes need</source>
        <translation>トレースした点の座標を軸に必要な桁数で示す</translation>
    </message>
    <message>
        <source>Without coordinates of the traced point with the digits that the axes need</source>
        <translation>トレースした点の座標を小数 3 桁で示す</translation>
    </message>
    <message>
        <source>Point size</source>
        <translation>点の大きさ</translation>
    </message>
    <message>
        <source>Radius of measure points in pixels</source>
        <translation>測定点の半径（画素）</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>プロット</translation>
    </message>
    <message>
        <source>Title of the plot</source>
        <translation>プロットのタイトル</translation>
    </message>
    <message>
        <source>Title of the %1 axis</source>
        <translation>%1 軸のタイトル</translation>
    </message>
    <message>
        <source>expected on or off, found &quot;%1&quot;</source>
        <translation>on または off を指定してください: 「%1」</translation>
    </message>
    <message>
        <source>expected a whole number from %1 to %2, found &quot;%3&quot;</source>
        <translation>%1 から %2 の整数を指定してください: 「%3」</translation>
    </message>
    <message>
        <source>expected a number from 0 on, found &quot;%1&quot;</source>
        <translation>0 以上の数値を指定してください: 「%1」</translation>
    </message>
    <message>
        <source>expected a number, found &quot;%1&quot;</source>
        <translation>数値を指定してください: 「%1」</translation>
    </message>
    <message>
        <source>expected %1, found &quot;%2&quot;</source>
        <translation>%1 を指定してください: 「%2」</translation>
    </message>
    <message>
        <source>expected MIN:MAX, two different numbers, found &quot;%1&quot;</source>
        <translation>異なる 2 つの数値を MIN:MAX の形で指定してください: 「%1」</translation>
    </message>
    <message>
        <source>How the numbers of the %1 axis are written</source>
        <translation>%1 軸の数値の書き方</translation>
    </message>
    <message>
        <source>Colours of values</source>
        <translation>値の配色</translation>
    </message>
    <message>
        <source>Eleven numbers beside the bar with decimals that are set, eleven with those that they need, or round ones</source>
        <translation>カラーバーの数値: 桁数を決めた 11 個、必要な桁数の 11 個、または切りのよい数値</translation>
    </message>
    <message>
        <source>Label contours</source>
        <translation>等高線に値を表示</translation>
    </message>
    <message>
        <source>Values at the contours of the flat plot of XY</source>
        <translation>XY 平面図の等高線に値を書く</translation>
    </message>
    <message>
        <source>Exaggeration in the title</source>
        <translation>タイトルに鉛直誇張率</translation>
    </message>
    <message>
        <source>How many times as long Z is drawn as X and Y, behind the title of the plot</source>
        <translation>Z が X、Y の何倍の縮尺かをタイトルの後に示す</translation>
    </message>
    <message>
        <source>Names of points</source>
        <translation>点の名前</translation>
    </message>
    <message>
        <source>Names beside measure points, as far as their file has them</source>
        <translation>測定点のそばに名前を書く（ファイルにある場合）</translation>
    </message>
    <message>
        <source>List of points</source>
        <translation>点の一覧</translation>
    </message>
    <message>
        <source>A list of named points with their coordinates</source>
        <translation>名前のある点と座標の一覧を表示する</translation>
    </message>
</context>
<context>
    <name>SettingsPanel</name>
    <message>
        <source>Back to what it was by itself</source>
        <translation>自動の値に戻す</translation>
    </message>
    <message>
        <source>The %1 axis follows as soon as its other end fits</source>
        <translation>もう一方の端が合うと、%1 軸が変わります</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>not enough memory</source>
        <translation>メモリが足りません</translation>
    </message>
    <message>
        <source>Qt&apos;s plugin for this display is missing; install qt6-wayland, for X11 qt6-qpa-plugins</source>
        <translation>この画面用の Qt プラグインがありません。qt6-wayland（X11 では qt6-qpa-plugins）をインストールしてください</translation>
    </message>
    <message>
        <source>Qt has no plugin for QT_QPA_PLATFORM=%1; unset it</source>
        <translation>QT_QPA_PLATFORM=%1 用の Qt プラグインがありません。変数を解除してください</translation>
    </message>
    <message>
        <source>no display; set DISPLAY or use --picture FILE.png</source>
        <translation>画面がありません。DISPLAY を設定するか、--picture FILE.png を使ってください</translation>
    </message>
    <message>
        <source>cannot open display %1; set DISPLAY or use --picture FILE.png</source>
        <translation>画面 %1 を開けません。DISPLAY を設定するか、--picture FILE.png を使ってください</translation>
    </message>
</context>
<context>
    <name>SurfacesPanel</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>色</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>線</translation>
    </message>
    <message>
        <source>Click the box to show or hide the surface, twice the name to change it</source>
        <translation>チェックで曲面を表示／非表示、名前はダブルクリックで変更します</translation>
    </message>
    <message>
        <source>values</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Click to colour the surface by its values, or in one colour</source>
        <translation>クリックして、値による色分けか 1 色かを選びます</translation>
    </message>
    <message>
        <source>From 0 to 1: click twice to change it</source>
        <translation>0 から 1。ダブルクリックで変更します</translation>
    </message>
    <message>
        <source>Click to show or hide the frame lines</source>
        <translation>クリックしてメッシュ線を表示／非表示にします</translation>
    </message>
    <message>
        <source>Click to take the surface away</source>
        <translation>クリックして曲面を取り除きます</translation>
    </message>
    <message>
        <source>Opacity: expected a number from 0 to 1, found &quot;%1&quot;</source>
        <translation>不透明度: 0 から 1 の数値を入力してください: 「%1」</translation>
    </message>
    <message>
        <source>The first surface stays: the axes are made for it</source>
        <translation>最初の曲面は取り除けません。軸はこの曲面に合わせてあります</translation>
    </message>
    <message>
        <source>By its &amp;values</source>
        <translation>値による(&amp;V)</translation>
    </message>
    <message>
        <source>In &amp;one colour...</source>
        <translation>1 色(&amp;O)...</translation>
    </message>
    <message>
        <source>Colour of %1</source>
        <translation>%1 の色</translation>
    </message>
</context>
<context>
    <name>WindowReading</name>
    <message>
        <source>Reading %1...</source>
        <translation>%1 を読み込んでいます...</translation>
    </message>
</context>
</TS>
