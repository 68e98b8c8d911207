# Comments of a C header as GTK's tools read them, made what Doxygen reads.
/^#define KIVO_GTK4_API/d
/^ \* (kivo_[a-z_]+|KivoPlot[A-Za-z]*):$/d
s/^ \* @([a-z_]+):( \([^)]*\))*:? / * %param \1 /
s/^ \* Returns:( \([^)]*\))*:? / * %return /
s/@([A-Za-z_]+)/\1/g
s/^ \* %/ * @/
