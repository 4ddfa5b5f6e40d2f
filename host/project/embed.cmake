# Writes files into a source file as texts: cmake -DFOLDER=... -DFILES=a:b -DOUTPUT=... -P embed.cmake
string(REPLACE ":" ";" files ${FILES})
set(text "#include \"host/project/templatefiles.h\"\n\nnamespace brvhost {\nnamespace {\n\n")
string(APPEND text "constexpr TemplateFile kFiles[] = {\n")
foreach(file IN LISTS files)
  file(READ ${FOLDER}/${file} content)
  string(APPEND text "    {\"${file}\", R\"brvfile(${content})brvfile\"},\n")
endforeach()
string(APPEND text "};\n\n}  // namespace\n\nstd::span<const TemplateFile> TemplateFiles() { return kFiles; }\n\n"
       "}  // namespace brvhost\n")
file(WRITE ${OUTPUT} "${text}")
