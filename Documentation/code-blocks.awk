# Prints the blocks of a page that are marked cpp; compilers' messages name the page's own lines.
/^```cpp$/ { inside = 1; printf "#line %d \"%s\"\n", NR + 1, FILENAME; next }
/^```$/ { inside = 0 }
inside
