#include "host/xml/xmlreason.h"

#include <expat.h>

namespace brvhost {

std::string XmlReason(int code) {
  switch (code) {
    case XML_ERROR_SYNTAX:
      return "text or markup that may not be here";
    case XML_ERROR_INVALID_TOKEN:
      return "a character that may not be here";
    case XML_ERROR_PARTIAL_CHAR:
      return "a character that is cut off";
    case XML_ERROR_TAG_MISMATCH:
      return "an end tag of another element than the open one";
    case XML_ERROR_DUPLICATE_ATTRIBUTE:
      return "an attribute that the tag has already";
    case XML_ERROR_JUNK_AFTER_DOC_ELEMENT:
      return "text or markup after the end of the document";
    case XML_ERROR_PARAM_ENTITY_REF:
      return "a reference to a parameter entity that may not be here";
    case XML_ERROR_UNDEFINED_ENTITY:
      return "a reference to an entity that is not declared";
    case XML_ERROR_RECURSIVE_ENTITY_REF:
      return "an entity that refers to itself";
    case XML_ERROR_ASYNC_ENTITY:
      return "an entity that does not end in the element that it starts in";
    case XML_ERROR_BAD_CHAR_REF:
      return "a reference to a character that XML does not have";
    case XML_ERROR_BINARY_ENTITY_REF:
      return "a reference to an entity that is not XML";
    case XML_ERROR_ATTRIBUTE_EXTERNAL_ENTITY_REF:
      return "an attribute that refers to an entity outside the document";
    case XML_ERROR_MISPLACED_XML_PI:
      return "an XML declaration that is not at the start";
    case XML_ERROR_UNKNOWN_ENCODING:
      return "an encoding that is not known";
    case XML_ERROR_INCORRECT_ENCODING:
      return "an encoding that the document is not in";
    case XML_ERROR_UNCLOSED_CDATA_SECTION:
      return "a CDATA section that does not end";
    case XML_ERROR_XML_DECL:
      return "an XML declaration with something wrong in it";
    case XML_ERROR_PUBLICID:
      return "a public identifier with a character that it may not have";
    case XML_ERROR_AMPLIFICATION_LIMIT_BREACH:
      return "entities that stand for far more text than the document has";
    default:
      return "error " + std::to_string(code) + " of the parser";
  }
}

}  // namespace brvhost
