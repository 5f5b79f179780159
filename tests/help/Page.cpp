#include "help/Page.h"

#include <libxml/parser.h>
#include <libxml/xpath.h>

#include <sstream>

namespace quillon::test {
namespace {

/// libxml2 counts its characters as unsigned.
const xmlChar* Units(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);
}

struct FreeUnits {
  void operator()(xmlChar* text) const { xmlFree(text); }
};

/// Copies the text and frees it; null gives an empty text.
std::string Taken(xmlChar* text) {
  const std::unique_ptr<xmlChar, FreeUnits> owner(text);
  return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

struct FreeContext {
  void operator()(xmlXPathContext* context) const { xmlXPathFreeContext(context); }
};

struct FreeResult {
  void operator()(xmlXPathObject* result) const { xmlXPathFreeObject(result); }
};

}  // namespace

std::string Node::Text() const {
  return Taken(xmlNodeGetContent(node_));
}

std::string Node::Attribute(const char* name) const {
  return Taken(xmlGetProp(node_, Units(name)));
}

bool Node::HasClass(const std::string& name) const {
  std::istringstream classes(Attribute("class"));
  for (std::string one; classes >> one;) {
    if (one == name) return true;
  }
  return false;
}

std::vector<Node> Node::Find(const std::string& path) const {
  const std::unique_ptr<xmlXPathContext, FreeContext> context(xmlXPathNewContext(node_->doc));
  context->node = node_;
  const std::unique_ptr<xmlXPathObject, FreeResult> result(xmlXPathEvalExpression(Units(path.c_str()), context.get()));
  std::vector<Node> nodes;
  if (!result || result->nodesetval == nullptr) return nodes;
  for (int i = 0; i < result->nodesetval->nodeNr; ++i) nodes.emplace_back(result->nodesetval->nodeTab[i]);
  return nodes;
}

std::string Node::TextWithoutPlaceholders() const {
  std::string text;
  for (const Node& part : Find("./node()")) {
    const std::string name = reinterpret_cast<const char*>(part.node_->name);
    text += name == "br" || name == "i" ? "\n" : part.Text();
  }
  return text;
}

std::optional<Page> Page::Parse(const std::string& bytes, const char* encoding) {
  Page page(xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, encoding,
                          XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
  return page.document_ ? std::optional(std::move(page)) : std::nullopt;
}

std::vector<std::string> Page::Texts(const std::string& path) const {
  std::vector<std::string> texts;
  for (const Node& node : Find(path)) texts.push_back(node.Text());
  return texts;
}

}  // namespace quillon::test
