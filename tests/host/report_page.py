"""Reads a report: a tree of its elements, which must be whole."""

from html.parser import HTMLParser

VOID = {"meta"}


class Element:
    def __init__(self, name, attributes, parent):
        self.name = name
        self.attributes = dict(attributes)
        self.parent = parent
        self.children = []

    def text(self):
        return "".join(
            child if isinstance(child, str) else child.text() for child in self.children
        )

    def all(self, name, **attributes):
        """Every element of that name below, with these attributes."""
        found = []
        for child in self.children:
            if isinstance(child, str):
                continue
            is_asked = all(
                value in child.attributes.get(key.rstrip("_"), "").split()
                for key, value in attributes.items()
            )
            if child.name == name and is_asked:
                found.append(child)
            found += child.all(name, **attributes)
        return found

    def one(self, name, **attributes):
        found = self.all(name, **attributes)
        if len(found) != 1:
            raise AssertionError(f"{len(found)} of {name} {attributes}")
        return found[0]

    def numbers(self):
        """The numbers in it, with every digit."""
        return [float(data.attributes["value"]) for data in self.all("data")]

    def rows(self):
        """The texts of a table's cells, row by row."""
        return [
            [cell.text() for cell in row.children if cell.name in ("td", "th")]
            for row in self.all("tr")
        ]


class Page(HTMLParser):
    """Raises where an element is not closed in its turn."""

    def __init__(self, path):
        super().__init__()
        self.source = path.read_text(encoding="utf-8")
        self.root = Element("", {}, None)
        self._at = self.root
        self.feed(self.source)
        self.close()
        if self._at is not self.root:
            raise AssertionError(f"{self._at.name} is not closed")

    def handle_starttag(self, tag, attrs):
        element = Element(tag, attrs, self._at)
        if len(element.attributes) != len(attrs):
            raise AssertionError(f"{tag} has an attribute twice")
        self._at.children.append(element)
        if tag not in VOID:
            self._at = element

    def handle_startendtag(self, tag, attrs):
        self._at.children.append(Element(tag, attrs, self._at))

    def handle_endtag(self, tag):
        if tag != self._at.name:
            raise AssertionError(f"</{tag}> ends {self._at.name} at {self.getpos()}")
        self._at = self._at.parent

    def handle_data(self, data):
        self._at.children.append(data)
