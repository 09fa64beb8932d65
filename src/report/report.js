// Puts the page together. The table, the treemap and the lists show each other's entries.

function showHeader(entries) {
    const {list} = entries;
    const moment = new Date(list.created).getTime() / 1000;
    document.title = `${attributeText(list.root)} - ${list.program}`;
    byId("program").textContent = `${list.program} report`;
    byId("root").textContent = list.root;
    const preset = element("bdi", "", list.preset);
    byId("about").append(`Made ${timeText(moment)} with the preset “`, preset, "”");
    byId("zone").textContent = Intl.DateTimeFormat().resolvedOptions().timeZone;
    const totals = [
        ["Size", sizeText(entries.size[0]), bytesText(entries.size[0])],
        ["Files", numberText(entries.files[0])],
        ["Folders", numberText(entries.folders[0])],
    ];
    if (entries.unreadable > 0)
        totals.push(["Folders without access", numberText(entries.unreadable)]);
    for (const [name, text, title = ""] of totals) {
        const pair = element("div");
        const value = element("dd", "", text);
        value.title = title;
        pair.append(element("dt", "", name), value);
        byId("totals").append(pair);
    }
    byId("totals").lastChild.classList.toggle("warning", entries.unreadable > 0);
    const missing = list.files + list.folders - entries.count + 1;
    byId("incomplete").hidden = missing === 0;
    byId("incomplete").textContent = "This report is not complete: entries of the list are missing.";
}

function showCrumbs(entries, folder, opened) {
    const crumbs = [0, ...entries.pathOf(folder)].map(part => {
        const item = element("li");
        const button = element("button", "link");
        button.type = "button";
        button.append(element("bdi", "", entries.name(part)));
        button.addEventListener("click", () => opened(part));
        if (part === folder)
            button.setAttribute("aria-current", "location");
        item.append(button);
        return item;
    });
    byId("crumbs").replaceChildren(...crumbs);
}

// The box in which a text is searched for, and the keys that lead to it and end the search.
class SearchBox {
    constructor(table) {
        this.table = table;
        this.box = byId("search");
        this.found = byId("found");
        this.box.addEventListener("input", delayed(150, () => this.run()));
        this.box.addEventListener("keydown", event => this.onKeyInBox(event));
        addEventListener("keydown", event => this.onKey(event));
    }

    run() {
        const text = this.box.value;
        this.table.change(rows => {
            if (text === "") {
                rows.endSearch();
                this.found.textContent = "";
            } else {
                const found = rows.search(text);
                this.found.textContent = found === 0 ? "No name has this text." : countText(found, "match", "matches");
            }
        });
    }

    // Empties the box when the rows are all there again.
    clear() {
        this.box.value = "";
        this.found.textContent = "";
    }

    onKeyInBox(event) {
        if (event.key === "ArrowDown" || event.key === "Enter") {
            event.preventDefault();
            this.table.moveTo(this.table.active);
        }
    }

    onKey(event) {
        if (event.defaultPrevented || event.ctrlKey || event.altKey || event.metaKey)
            return;
        if (event.key === "/" && document.activeElement !== this.box) {
            event.preventDefault();
            this.box.focus();
            this.box.select();
        } else if (event.key === "Escape") {
            event.preventDefault();
            this.clear();
            this.run();
        }
    }
}

function start() {
    const entries = readEntries();
    const kinds = new Kinds(entries);
    byId("opening").remove();
    byId("page").hidden = false;
    showHeader(entries);

    const showFolder = entry => {
        const isFolder = entries.isFolder(entry);
        const folder = isFolder ? entry : entries.parent[entry];
        treemap.show(folder, isFolder ? 0 : entry);
        showCrumbs(entries, folder, openFolder);
    };
    const reveal = (entry, focus) => {
        if (table.reveal(entry, {focus}))
            search.clear();
    };
    const openFolder = folder => {
        if (folder !== 0)
            reveal(folder, false);
        showFolder(folder);
    };
    const openFile = file => {
        reveal(file, true);
        byId("tree").scrollIntoView({block: "nearest"});
        showFolder(file);
    };
    const table = new Table(new Rows(entries), kinds, delayed(150, showFolder));
    const search = new SearchBox(table);
    const treemap = new Treemap(entries, kinds,
        entry => entries.isFolder(entry) ? openFolder(entry) : openFile(entry));
    table.update(0);
    showFolder(0);
    showExtensions(kinds);
    showLargest(kinds, openFile);
    byId("open-all").addEventListener("click", () => table.change(rows => rows.setAllOpen(true)));
    byId("close-all").addEventListener("click", () => table.change(rows => rows.setAllOpen(false)));
}

start();
