# cmake -DINPUT=a.json -DOUTPUT=a.cpp -DHEADER=x/a.h -DFUNCTION=Name -DNAMESPACE=a::b
#       -P embed_text.cmake
# Writes a source file with a function that gives the input file's bytes.
file(READ ${INPUT} bytes HEX)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
string(REPEAT "0x..," 16 line)
string(REGEX REPLACE "(${line})" "\\1\n" bytes "${bytes}")
file(WRITE ${OUTPUT} "#include \"${HEADER}\"\n\nnamespace ${NAMESPACE} {\n\nnamespace {\n\nconstexpr unsigned char kBytes[] = {\n${bytes}};\n\n}  // namespace\n\nstd::string_view ${FUNCTION}() {\n  return {reinterpret_cast<const char*>(kBytes), sizeof kBytes};\n}\n\n}  // namespace ${NAMESPACE}\n")
