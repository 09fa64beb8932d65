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

function start() {
    const entries = readEntries();
    const kinds = new Kinds(entries);
    const rows = new Rows(entries);
    const search = byId("search");
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
        if (table.reveal(entry, {focus})) {
            search.value = "";
            byId("found").textContent = "";
        }
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
    const table = new Table(rows, kinds, delayed(150, showFolder));
    const treemap = new Treemap(entries, kinds,
        entry => entries.isFolder(entry) ? openFolder(entry) : openFile(entry));
    table.update(0);
    showFolder(0);
    showExtensions(kinds);
    showLargest(kinds, openFile);

    const runSearch = () => {
        const active = rows.list[table.active];
        if (search.value === "") {
            rows.endSearch();
            byId("found").textContent = "";
        } else {
            const found = rows.search(search.value);
            byId("found").textContent = found === 0 ? "No name has this text." : countText(found, "match", "matches");
        }
        table.update(active);
        table.moveTo(table.active, {focus: false});
    };
    search.addEventListener("input", delayed(150, runSearch));
    search.addEventListener("keydown", event => {
        if (event.key === "Escape") {
            event.preventDefault();
            search.value = "";
            runSearch();
        } else if (event.key === "ArrowDown" || event.key === "Enter") {
            event.preventDefault();
            table.moveTo(table.active);
        }
    });
    addEventListener("keydown", event => {
        if (event.defaultPrevented || event.ctrlKey || event.altKey || event.metaKey)
            return;
        if (event.key === "/" && document.activeElement !== search) {
            event.preventDefault();
            search.focus();
            search.select();
        } else if (event.key === "Escape" && search.value !== "") {
            search.value = "";
            runSearch();
        }
    });
    const openAll = open => {
        const active = rows.list[table.active];
        rows.setAllOpen(open);
        table.update(active);
        table.moveTo(table.active, {focus: false});
    };
    byId("open-all").addEventListener("click", () => openAll(true));
    byId("close-all").addEventListener("click", () => openAll(false));
}

start();
