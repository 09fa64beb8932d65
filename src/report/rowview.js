// A row of the table as elements, which are used again for other entries.

// The columns after the name; text returns what the cell shows.
const Columns = [
    {id: "size", title: "Size", key: "size", number: true},
    {id: "share", title: "Share", key: "size", number: true,
        text: (entries, entry) => shareText(entries.size[entry], entries.size[entries.parent[entry]])},
    {id: "modified", title: "Modified", key: "modified",
        text: (entries, entry) => timeText(entries.modified[entry])},
    {id: "created", title: "Created", key: "created",
        text: (entries, entry) => timeText(entries.created[entry])},
    {id: "files", title: "Files", key: "files", number: true,
        text: (entries, entry) => entries.isFolder(entry) ? numberText(entries.files[entry]) : ""},
    {id: "folders", title: "Folders", key: "folders", number: true,
        text: (entries, entry) => entries.isFolder(entry) ? numberText(entries.folders[entry]) : ""},
];

// Deeper rows are not indented further, so that their names stay in view.
const DeepestIndent = 12;

class RowView {
    constructor() {
        this.element = element("div", "row");
        this.element.setAttribute("role", "row");
        const nameCell = this.addCell("name");
        this.marker = element("span");
        this.marker.setAttribute("aria-hidden", "true");
        this.name = element("bdi");
        this.unreadable = element("span", "badge", "no access");
        this.unreadable.title = "This folder could not be read";
        nameCell.append(this.marker, this.name, this.unreadable);
        this.nameCell = nameCell;
        this.cells = Columns.map(column => this.addCell(column.id + (column.number ? " number" : "")));
        this.bar = element("span", "bar");
        this.bar.append(element("span"));
        this.sizeText = element("span");
        this.cells[0].append(this.bar, this.sizeText);
    }

    addCell(className) {
        const cell = element("div", className);
        cell.setAttribute("role", "gridcell");
        this.element.append(cell);
        return cell;
    }

    // Shows the row of this number.
    show(rows, index, kinds) {
        const {entries} = rows;
        const entry = rows.list[index];
        const parent = entries.parent[entry];
        const isFolder = entries.isFolder(entry);
        this.index = index;
        this.entry = entry;
        this.setAttributes({
            "aria-rowindex": index + 2,
            "aria-level": entries.depth[entry],
            "aria-posinset": rows.place[entry],
            "aria-setsize": rows.shown[parent],
        });
        if (isFolder && entries.hasKids(entry))
            this.element.setAttribute("aria-expanded", rows.isOpen(entry));
        else
            this.element.removeAttribute("aria-expanded");
        this.element.classList.toggle("folder", isFolder);

        this.marker.className = isFolder ? "twisty" : `swatch kind${kinds.of(entry)}`;
        this.nameCell.style.setProperty("--indent", Math.min(entries.depth[entry] - 1, DeepestIndent));
        this.showName(entries.name(entry), rows.searched);
        this.nameCell.title = attributeText(entries.pathText(entry));
        this.unreadable.hidden = !entries.isUnreadable(entry);

        const size = entries.size[entry];
        this.bar.firstChild.style.width = `${100 * size / (entries.size[parent] || 1)}%`;
        this.sizeText.textContent = sizeText(size);
        this.cells[0].title = bytesText(size);
        for (let i = 1; i < Columns.length; ++i)
            this.cells[i].textContent = Columns[i].text(entries, entry);
    }

    setAttributes(values) {
        for (const [name, value] of Object.entries(values))
            this.element.setAttribute(name, value);
    }

    // Marks what was searched for.
    showName(name, searched) {
        const match = searched?.exec(name);
        if (!match) {
            this.name.textContent = name;
            return;
        }
        const end = match.index + match[0].length;
        this.name.replaceChildren(name.slice(0, match.index), element("mark", "", match[0]), name.slice(end));
    }
}
